// The view-only state of a displayed record: the supplier-editable fields and the commands that create,
// split or open a record for detail change.
#include "forms/frmData/frmData.h"
#include "forms/frmData/record_display.h"
#include "forms/keyed_toolbar.h"
#include "platform/widgets/field_state.h"

#include <QAction>
#include <QCheckBox>

namespace tolvinpt {
namespace {

constexpr QStringView Commands[] = {u"mnuDataNew", u"mnuDataDivide", u"mnuDataDetail", u"mnuDataDummy3"};
// Toolbar1 positions of "新規作成", "分割" and "詳細変更".
constexpr int CommandButtons[] = {1, 8, 9};
constexpr QStringView SupplierLabels[] = {u"Label9",  u"Label10", u"Label13", u"Label18",
                                          u"Label20", u"Label23", u"Label24"};
constexpr QStringView SupplierFields[] = {u"txtMyHCode",        u"txtDate(1)",   u"txtDate(2)",
                                          u"txtAmountDelivery", u"txtUnitPrice", u"cobCurrency",
                                          u"cobTaxation"};

} // namespace

void applyViewOnly(frmData& form, bool viewOnly)
{
    const bool open = !viewOnly;
    for (QStringView name : Commands)
        form.menuItem(name.toString())->setEnabled(open);
    for (int position : CommandButtons)
        form.toolbar1()->setButtonEnabled(position, open);
    for (QStringView name : SupplierLabels)
        setCaptionColour(form.control(name.toString()),
                         open ? SystemColour::Highlight : SystemColour::WindowText);
    for (QStringView name : SupplierFields) {
        QWidget* field = form.control(name.toString());
        setLocked(field, viewOnly);
        setBackground(field, open ? SystemColour::WindowBackground : SystemColour::ButtonFace);
        setTabStop(field, open);
    }
    QWidget* taxType = form.control(QStringLiteral("chkTaxType"));
    taxType->setEnabled(open);
    setTabStop(taxType, open);
}

} // namespace tolvinpt
