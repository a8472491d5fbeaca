// Numeric fields: what typing, entering and leaving the quantities and the unit price do.
#include "forms/frmData/number_rules.h"

#include "forms/frmData/currency_rules.h"
#include "forms/frmData/frmData.h"
#include "platform/values/number_text.h"
#include "platform/widgets/guarded.h"
#include "platform/widgets/key_filter.h"
#include "platform/widgets/messages.h"
#include "platform/widgets/select_all.h"
#include "platform/widgets/validate_on_leave.h"

#include <QLineEdit>

#include <limits>

using namespace Qt::StringLiterals;

namespace tolvinpt::frmdata {
namespace {

struct PriceLimit
{
    int decimals;
    std::int64_t maxScaled; // the largest price times 10^decimals
    QStringView message;
    QStringView title;
};

constexpr PriceLimit YenPrice = {3, 999'999'999'999, u"単価の最大値は 999,999,999.999 です",
                                 u"[単価] - 入力ﾁｪｯｸ"};
constexpr PriceLimit ForeignPrice = {5, 9'999'999'999'999'999,
                                     u"単価 (外貨)の最大値は 99,999,999,999.99999 です",
                                     u"[単価 (外貨)] - 入力ﾁｪｯｸ"};

const PriceLimit& priceLimit(bool yen)
{
    return yen ? YenPrice : ForeignPrice;
}

// A value beyond the currency range saturates; the fields' length limit keeps it from happening.
Currency toCurrency(const Decimal& value)
{
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    return Currency::fromDecimal(value).value_or(Currency::fromRaw(value.isNegative() ? -most : most));
}

QString quantityText(Currency value)
{
    return formatNumber(value.toDecimal(), QuantityDecimals);
}

// Leaving an order, instruction or delivery quantity of a changed record: clamp silently at the
// maximum and write the value back in its display form. The value written back.
Currency amountRule(QLineEdit* field)
{
    Currency value = readQuantity(field->text());
    if (value > MaxQuantity) {
        messages().beep();
        value = MaxQuantity;
    }
    field->setText(quantityText(value));
    return value;
}

// A changed delivery quantity brings the per-package quantity in line. Individual packages no longer
// add up to it, so they fall back to a single package.
void adjustPackages(frmData& form, Currency delivery)
{
    auto* quantity = form.control<QLineEdit>(u"txtQuantity"_s);
    const QString deliveryText = form.control<QLineEdit>(u"txtAmountDelivery"_s)->text();
    switch (form.packageMode()) {
    case 1:
        quantity->setText(deliveryText);
        break;
    case 2: {
        const Decimal perPackage = leadingNumber(quantity->text());
        if (perPackage.isZero() || delivery.toDecimal() <= perPackage) {
            quantity->setText(deliveryText);
            form.selectPackageMode(1);
        }
        break;
    }
    case 3:
        quantity->setText(deliveryText);
        form.selectPackageMode(1);
        break;
    default:
        break;
    }
}

void txtAmountDelivery_Validate(frmData& form, QLineEdit* field)
{
    if (!form.bChanged)
        return;
    const Currency delivery = amountRule(field);
    if (form.bChangedAmount)
        adjustPackages(form, delivery);
    form.bChangedAmount = false;
}

// A package holds at most the whole delivery, and one that holds all of it is a single package.
void txtQuantity_Validate(frmData& form)
{
    auto* quantity = form.control<QLineEdit>(u"txtQuantity"_s);
    const Currency delivery = readCurrency(form.control<QLineEdit>(u"txtAmountDelivery"_s)->text());
    Currency perPackage = readQuantity(quantity->text());
    if (perPackage.isZero() || perPackage > delivery)
        perPackage = delivery;
    quantity->setText(quantityText(perPackage));
    if (perPackage == delivery)
        form.selectPackageMode(1);
}

} // namespace

Currency readQuantity(const QString& text)
{
    return toCurrency(leadingNumber(text).roundHalfEven(QuantityDecimals));
}

Currency readCurrency(const QString& text)
{
    return toCurrency(leadingNumber(text));
}

int priceDecimals(bool yen)
{
    return priceLimit(yen).decimals;
}

Decimal maxPrice(bool yen)
{
    const PriceLimit& limit = priceLimit(yen);
    return Decimal::fromScaledInteger(limit.maxScaled, limit.decimals);
}

void installNumberRules(frmData& form)
{
    ValidateOnLeave& leave = form.leave();
    auto field = [&form](QStringView name) { return form.control<QLineEdit>(name.toString()); };

    for (QStringView name :
         {u"txtAmountOrder", u"txtAmountIndicate", u"txtAmountDelivery", u"txtQuantity", u"txtUnitPrice"})
        setKeyPress(field(name), numberKey);

    for (QStringView name : {u"txtAmountOrder", u"txtAmountIndicate"}) {
        QLineEdit* amount = field(name);
        leave.setValidate(amount, [&form, amount](bool&) {
            // Leaving a field of an unchanged record neither checks nor reformats it.
            if (form.bChanged)
                amountRule(amount);
        });
    }

    QLineEdit* delivery = field(u"txtAmountDelivery");
    leave.setGotFocus(delivery, [&form, delivery] {
        SelectAllText(delivery);
        form.bChangedAmount = false;
    });
    QObject::connect(delivery, &QLineEdit::textChanged, &form, guarded([&form](const QString& text) {
                         // Nothing to pack without a delivery quantity.
                         form.control(u"fraQuantity"_s)->setEnabled(!leadingNumber(text).isZero());
                     }));
    leave.setValidate(delivery, [&form, delivery](bool&) { txtAmountDelivery_Validate(form, delivery); });

    leave.setValidate(field(u"txtQuantity"), [&form](bool&) { txtQuantity_Validate(form); });
    leave.setValidate(field(u"txtUnitPrice"), [&form](bool& cancel) { form.txtUnitPrice_Validate(cancel); });
}

} // namespace tolvinpt::frmdata

namespace tolvinpt {

void frmData::txtUnitPrice_Validate(bool& cancel)
{
    using namespace frmdata;
    auto* price = control<QLineEdit>(u"txtUnitPrice"_s);
    const bool yen = pricedInYen(*this);
    const int decimals = priceDecimals(yen);
    const Decimal value = strictDecimal(price->text()).value_or(Decimal()).roundHalfEven(decimals);
    if (value.isZero()) {
        price->setText(u"0"_s);
        return;
    }
    if (value > maxPrice(yen)) {
        // Unlike a quantity, a price is not cut down: the operator corrects what was typed.
        cancel = true;
        const PriceLimit& limit = priceLimit(yen);
        showExclamation(limit.message.toString(), limit.title.toString());
        return;
    }
    price->setText(formatNumber(value, decimals));
}

} // namespace tolvinpt
