#include "forms/frmData/record_display.h"

#include "forms/combo_items.h"
#include "forms/frmData/frmData.h"
#include "forms/frmData/record_fields.h"
#include "platform/sql/database.h"
#include "platform/values/date.h"
#include "platform/values/decimal.h"
#include "platform/widgets/event_guard.h"
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

namespace tolvinpt {
namespace {

using C = DeliveryColumn;

QLineEdit* box(const frmData& form, QStringView name)
{
    return form.control<QLineEdit>(name.toString());
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
    return customer->Settings().NoQuantityBreakdown() ||
           customer->Settings().DisplayOptions().HideQuantityFrame();
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
        step([&] {
            form.shownPackages = readPackageRows(database, record.id().value());
            loadPackageQuantities(gPackageQty, form.shownPackages->quantities);
        });
}

void showRecord(frmData& form, db::Database& database, const CustomerList& customers,
                const DeliveryRecord& record)
{
    step([&] {
        FindComboItem(form.control<QComboBox>(QStringLiteral("cobCustomer")), record.text(C::F00004).value());
    });
    step([&] { form.ClearEntryForm(); });
    fillTexts(form, record, fields::orderTexts());
    for (const auto& f : fields::dates())
        step([&] { fill(form, f.field, toYmd(record.date(f.column).value())); });
    fillNumbers(form, record, fields::quantities());
    fillTaxIncluded(form, record);
    fillTexts(form, record, fields::unitAndInspection());
    step([&] {
        form.control<QComboBox>(QStringLiteral("cobTaxation"))
            ->setCurrentIndex(taxationIndex(record.text(C::F00059), record.text(C::F00281)));
    });
    showCurrencyAndPrice(form, record);
    fillTexts(form, record, fields::remarks());
    step([&] {
        form.control<QLabel>(QStringLiteral("lblInfo"))->setText(u'[' + recordKindCaption(record) + u']');
    });
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
    if (record) {
        form.shownRecord = *record;
        form.shownPackages.reset();
        showRecord(form, database, customers, *record);
    }
    form.bChanged = false;
    form.bChangedQTY = false;
}

void ShowDeliveryRecord(frmData& form, db::Database& database, const CustomerList& customers, qint64 id)
{
    ShowDeliveryRecord(form, database, customers, readDeliveryRecord(database, id));
}

} // namespace tolvinpt
