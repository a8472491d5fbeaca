// The blank record, the order fields' lock and new-record mode.
#include "forms/frmData/frmData.h"

#include "platform/widgets/field_state.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tolvinpt {
namespace {

struct TextValue
{
    QStringView name;
    QStringView text;
};

// The record's text fields before and after the tax and currency choices, in the order they are blanked.
constexpr TextValue BlankRecord[] = {
    {u"txtIDData", u""},          {u"txtOrderNo", u""},      {u"txtPaymentKeyNo", u""},
    {u"txtTantoA", u""},          {u"txtTantoK", u""},       {u"txtPlaceC", u""},
    {u"txtPlaceA", u""},          {u"txtPlaceK", u""},       {u"txtKensa", u""},
    {u"txtHCode", u""},           {u"txtMyHCode", u""},      {u"txtHinmeiA", u""},
    {u"txtHinmeiK", u""},         {u"txtDate(0)", u""},      {u"txtDate(1)", u""},
    {u"txtDate(2)", u""},         {u"txtAmountOrder", u"0"}, {u"txtAmountIndicate", u"0"},
    {u"txtAmountDelivery", u"0"}, {u"txtUnit", u""},         {u"txtUnitPrice", u"0"},
};
constexpr TextValue BlankInformation[] = {
    {u"txtCustomRemarksA", u""}, {u"txtCustomRemarksK", u""}, {u"txtMyRemarksA", u""},
    {u"txtMyRemarksK", u""},     {u"txtCustomBar", u""},      {u"txtMyBar", u""},
};

// The fields that normally come with the buyer's order.
constexpr QStringView OrderFields[] = {
    u"cobCustomer",       u"txtOrderNo",   u"txtPaymentKeyNo", u"txtPlaceC",         u"txtPlaceA",
    u"txtPlaceK",         u"txtTantoA",    u"txtTantoK",       u"txtHCode",          u"txtHinmeiA",
    u"txtHinmeiK",        u"txtDate(0)",   u"txtAmountOrder",  u"txtAmountIndicate", u"txtCustomRemarksA",
    u"txtCustomRemarksK", u"txtCustomBar", u"txtKensa",        u"txtUnit",           u"cobMyCodes",
};

// Selecting an item also resets a combo's typed text, as choosing it from the list would.
void selectItem(QComboBox* combo, int index)
{
    combo->setCurrentIndex(index);
    if (combo->isEditable())
        combo->setEditText(combo->itemText(index));
}

} // namespace

void frmData::ClearEntryForm()
{
    control(QStringLiteral("cobCustomer"))->setFocus();
    auto setTexts = [this](std::span<const TextValue> values) {
        for (const auto& value : values)
            control<QLineEdit>(value.name.toString())->setText(value.text.toString());
    };
    setTexts(BlankRecord);
    control<QCheckBox>(QStringLiteral("chkTaxType"))->setChecked(false);
    selectItem(control<QComboBox>(QStringLiteral("cobTaxation")), 0);
    selectItem(control<QComboBox>(QStringLiteral("cobCurrency")), 0);
    setTexts(BlankInformation);
    selectPackageMode(1);
    control<QLineEdit>(QStringLiteral("txtQuantity"))->setText(QStringLiteral("0"));
    control<QLabel>(QStringLiteral("lblInfo"))->setText(QStringLiteral("[手入力]"));
}

void frmData::SetDetailEditable(bool editable)
{
    for (QStringView name : OrderFields) {
        QWidget* field = control(name.toString());
        setLocked(field, !editable);
        if (qobject_cast<QLineEdit*>(field))
            setBackground(field, editable ? SystemColour::WindowBackground : SystemColour::ButtonFace);
        setTabStop(field, editable);
    }
}

void frmData::gNewStart()
{
    shownRecord.reset();
    shownPackages.reset();
    ClearEntryForm();
    control<QCheckBox>(QStringLiteral("chkNew"))->setChecked(true);
    SetDetailEditable(true);
    control(QStringLiteral("cmdFind"))->setEnabled(true);
    control<QComboBox>(QStringLiteral("cobCustomer"))->setCurrentIndex(0);
    cobMyCodes_Click();
    showModeControls(true);
    bChanged = false;
    bChangedQTY = false;
}

} // namespace tolvinpt
