// The record on screen as the columns of its row take it.
#include "forms/frmData/save_values.h"

#include "forms/frmData/currency_rules.h"
#include "forms/frmData/frmData.h"
#include "forms/frmData/input_checks.h"
#include "forms/frmData/number_rules.h"
#include "forms/frmData/record_fields.h"
#include "forms/record_id.h"
#include "forms/run_time_error.h"
#include "platform/values/number_text.h"
#include "platform/values/text.h"
#include "store/delivery_writes.h"
#include "store/taxation.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace tolvinpt {
namespace {

using C = DeliveryColumn;

QString textOf(const frmData& form, QStringView field)
{
    return form.control<QLineEdit>(field.toString())->text();
}

// Empty text is Null; otherwise the characters of "yyyymmdd" are read as year, month and day: the
// first four, the fifth and sixth, and the last two.
QVariant dateOf(const QString& text)
{
    if (text.isEmpty())
        return {};
    const QDate date =
        QDate::fromString(text.left(4) + u'-' + text.mid(4, 2) + u'-' + text.right(2), u"yyyy-MM-dd"_s);
    if (!date.isValid())
        throw typeMismatch();
    return date;
}

// A price is written exactly; a text that is no number does not convert.
QString priceOf(const QString& text)
{
    const auto price = strictDecimal(text);
    if (!price)
        throw typeMismatch();
    return price->toString();
}

DeliveryRecord detailOf(const frmData& form, const db::SqlDialect& dialect)
{
    DeliveryRecord row;
    const auto set = [&](DeliveryColumn column, const QVariant& value) {
        row.set(column, storedValue(dialect, column, value));
    };
    set(C::IDCustomer, selectedCustomerId(form));
    for (const auto& texts : {fields::orderTexts(), fields::unitAndInspection(), fields::remarks()}) {
        for (const FieldColumn& f : texts) {
            if (f.column != C::IDData)
                set(f.column, textOf(form, f.field));
        }
    }
    for (const FieldColumn& f : fields::dates())
        set(f.column, dateOf(textOf(form, f.field)));
    for (const FieldColumn& f : fields::quantities())
        set(f.column, leadingNumber(textOf(form, f.field)).toString());
    set(C::F00057, form.control<QCheckBox>(u"chkTaxType"_s)->isChecked() ? 1 : 2);
    set(C::F00059, taxationCodeOfEntry(form.control<QComboBox>(u"cobTaxation"_s)->currentText()));
    // A yen price lives in F00013 and a foreign one in F00282; the other of the two is 0.
    const bool yen = frmdata::pricedInYen(form);
    const QString price = priceOf(textOf(form, u"txtUnitPrice"));
    set(C::F00281, yen ? QString() : trimBlanks(form.control<QComboBox>(u"cobCurrency"_s)->currentText()));
    set(C::F00013, yen ? price : u"0"_s);
    set(C::F00282, yen ? u"0"_s : price);
    row.setNull(C::DateDeliveryPrint);
    return row;
}

DeliverySave::Packages packagesOf(const frmData& form)
{
    DeliverySave::Packages packages;
    for (const PackageModeEntry& entry : packageModeTable()) {
        packages.mode = entry.mode; // the last one when none is selected
        if (form.packageMode() == entry.optionIndex)
            break;
    }
    packages.quantity = frmdata::readCurrency(textOf(form, u"txtQuantity")).toString();
    packages.quantities = gPackageQty;
    return packages;
}

} // namespace

qint64 recordIdOnScreen(const frmData& form)
{
    const auto id = leadingRecordId(textOf(form, u"txtIDData"));
    if (!id)
        throw RunTimeError(u"Overflow"_s, 6);
    return *id;
}

DeliverySave deliverySaveOf(const frmData& form, const db::SqlDialect& dialect)
{
    DeliverySave save;
    save.id = recordIdOnScreen(form);
    save.isNew = textOf(form, u"txtIDData").isEmpty();
    if (form.bChanged) {
        save.detail = detailOf(form, dialect);
        save.key = orderKeyOnScreen(form);
    }
    if (form.bChanged || form.bChangedQTY)
        save.packages = packagesOf(form);
    if (!save.isNew) {
        save.shown = form.shownRecord;
        save.shownPackages = form.shownPackages;
    }
    return save;
}

} // namespace tolvinpt
