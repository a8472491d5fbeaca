#include "forms/frmData/record_display.h"

#include "forms/assign_text.h"
#include "forms/combo_items.h"
#include "forms/frmData/frmData.h"
#include "platform/database.h"
#include "platform/date.h"
#include "platform/decimal.h"
#include "platform/event_guard.h"
#include "store/delivery_reads.h"
#include "store/package_mode.h"
#include "store/package_quantities.h"
#include "store/record_kind.h"
#include "store/taxation.h"

#include <tolvinpt/host.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include <functional>

namespace tolvinpt {
namespace {

using C = DeliveryColumn;

struct FieldColumn
{
    QStringView field;
    DeliveryColumn column;
};

// Text fields filled from their column as stored, in the order the display fills them.
constexpr FieldColumn OrderTexts[] = {
    {u"txtIDData", C::IDData},      {u"txtCustomCode", C::F00004}, {u"txtMyCode", C::F00005},
    {u"txtOrderNo", C::F00007},     {u"txtPaymentKeyNo", C::F00159}, {u"txtTantoA", C::F00018},
    {u"txtTantoK", C::F00260},      {u"txtPlaceC", C::F00028},     {u"txtPlaceA", C::F00160},
    {u"txtPlaceK", C::F00274},      {u"txtHCode", C::F00024},      {u"txtMyHCode", C::F00023},
    {u"txtHinmeiA", C::F00022},     {u"txtHinmeiK", C::F00262},
};
constexpr FieldColumn Dates[] = {{u"txtDate(0)", C::F00031}, {u"txtDate(1)", C::F00039}, {u"txtDate(2)", C::F00040}};
constexpr FieldColumn Quantities[] = {
    {u"txtAmountOrder", C::F00015}, {u"txtAmountIndicate", C::F00032}, {u"txtAmountDelivery", C::F00036}};
constexpr FieldColumn Remarks[] = {
    {u"txtCustomRemarksA", C::F00162}, {u"txtCustomRemarksK", C::F00275}, {u"txtMyRemarksA", C::F00164},
    {u"txtMyRemarksK", C::F00276},     {u"txtCustomBar", C::F00161},      {u"txtMyBar", C::F00163},
};

// One statement of the display: a value that is missing or unreadable, or a database error, skips it and
// the display goes on. A failure of the host's objects is no statement's own: it ends the display.
void step(const std::function<void()>& statement)
{
    try {
        statement();
    } catch (const std::bad_optional_access&) {
    } catch (const db::DatabaseError&) {
    }
}

QLineEdit* box(const frmData& form, QStringView name)
{
    return form.control<QLineEdit>(name.toString());
}

// A number as plain text: 1500 shows "1500", 2.5 shows "2.5".
std::optional<QString> plainNumber(const DeliveryRecord& record, DeliveryColumn column)
{
    const auto value = record.number(column);
    if (!value)
        return std::nullopt;
    const auto decimal = Decimal::fromDouble(*value);
    return decimal ? std::optional(decimal->toString()) : std::nullopt;
}

void fill(const frmData& form, QStringView field, const std::optional<QString>& text)
{
    if (text)
        assignText(box(form, field), *text); // whole, even past the field's limit
}

void fillTexts(const frmData& form, const DeliveryRecord& record, std::span<const FieldColumn> fields)
{
    for (const auto& f : fields)
        step([&] { fill(form, f.field, record.text(f.column)); });
}

// Writes the currency code into the combo's edit part as typing would, so its own completion looks it
// up; a code that is not listed (or only starts like a listed one) is then written as it stands.
void showCurrency(frmData& form, const QString& code)
{
    auto* combo = form.control<QComboBox>(QStringLiteral("cobCurrency"));
    combo->lineEdit()->selectAll();
    combo->lineEdit()->insert(code);
    if (combo->currentText() == code)
        return;
    EventGuard guard(form.NotSeek);
    combo->setEditText(code);
    auto* names = form.control<QComboBox>(QStringLiteral("cobCurrencyName"));
    names->setCurrentIndex(names->count() - 1);
}

void showCurrencyAndPrice(frmData& form, const DeliveryRecord& record)
{
    const auto currency = record.text(C::F00281);
    if (isYenCurrency(currency)) {
        step([&] { showCurrency(form, QStringLiteral("JPY")); });
        step([&] { fill(form, u"txtUnitPrice", plainNumber(record, C::F00013)); });
        return;
    }
    step([&] { showCurrency(form, *currency); });
    step([&] {
        const auto price = record.decimal(C::F00282);
        const auto exact = price ? Decimal::fromString(*price) : std::nullopt;
        fill(form, u"txtUnitPrice", exact ? std::optional(exact->toString()) : std::nullopt);
    });
}

bool hidesPackageFrame(const CustomerList& customers, const DeliveryRecord& record)
{
    const auto id = record.integer(C::IDCustomer);
    const auto customer = id ? customers.ByKey(QString::number(*id)) : nullptr;
    if (!customer)
        return false;
    return customer->Settings().NoQuantityBreakdown() || customer->Settings().DisplayOptions().HideQuantityFrame();
}

void showPackages(frmData& form, db::Database& database, const CustomerList& customers,
                  const DeliveryRecord& record)
{
    QWidget* frame = form.control(QStringLiteral("fraQuantity"));
    if (hidesPackageFrame(customers, record)) {
        frame->hide();
        return;
    }
    frame->show();
    const auto currencyText = [&](DeliveryColumn column) -> std::optional<QString> {
        const auto value = record.currency(column);
        return value ? std::optional(value->toString()) : std::nullopt;
    };
    const PackageMode mode = packageModeFromStored(record.integer(C::QuantityType));
    form.selectPackageMode(packageModeEntry(mode).optionIndex);
    if (mode == PackageMode::Single) {
        box(form, u"txtQuantity")->setText(box(form, u"txtAmountDelivery")->text());
        return;
    }
    step([&] { fill(form, u"txtQuantity", currencyText(C::Quantity)); });
    if (mode == PackageMode::Individual)
        step([&] { loadPackageQuantities(gPackageQty, readPackageRows(database, record.id().value()).quantities); });
}

void showRecord(frmData& form, db::Database& database, const CustomerList& customers, const DeliveryRecord& record)
{
    step([&] { FindComboItem(form.control<QComboBox>(QStringLiteral("cobCustomer")), record.text(C::F00004).value()); });
    step([&] { form.ClearEntryForm(); });
    fillTexts(form, record, OrderTexts);
    for (const auto& f : Dates)
        step([&] { fill(form, f.field, toYmd(record.date(f.column).value())); });
    for (const auto& f : Quantities)
        step([&] { fill(form, f.field, plainNumber(record, f.column)); });
    step([&] { fill(form, u"txtUnit", record.text(C::F00012)); });
    step([&] { form.control<QCheckBox>(QStringLiteral("chkTaxType"))->setChecked(record.integer(C::F00057) == 1); });
    step([&] { fill(form, u"txtKensa", record.text(C::F00029)); });
    step([&] {
        form.control<QComboBox>(QStringLiteral("cobTaxation"))
            ->setCurrentIndex(taxationIndex(record.text(C::F00059), record.text(C::F00281)));
    });
    showCurrencyAndPrice(form, record);
    fillTexts(form, record, Remarks);
    step([&] { form.control<QLabel>(QStringLiteral("lblInfo"))->setText(u'[' + recordKindCaption(record) + u']'); });
    step([&] { applyViewOnly(form, form.company().ViewOnly()); });
    step([&] {
        if (form.company().UseQuantityBreakdown())
            showPackages(form, database, customers, record);
    });
}

} // namespace

void ShowDeliveryRecord(frmData& form, db::Database& database, const CustomerList& customers,
                        const std::optional<DeliveryRecord>& record)
{
    if (record)
        showRecord(form, database, customers, *record);
    form.bChanged = false;
    form.bChangedQTY = false;
}

void ShowDeliveryRecord(frmData& form, db::Database& database, const CustomerList& customers, qint64 id)
{
    ShowDeliveryRecord(form, database, customers, readDeliveryRecord(database, id));
}

} // namespace tolvinpt
