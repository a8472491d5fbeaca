#pragma once

// The numeric fields of the entry form: the three quantities, the per-package quantity and the unit
// price. Quantities are read leniently (their leading number) and clamped at the maximum with a beep;
// the unit price must convert as a whole and is refused with a message when too large.

#include "platform/values/currency.h"
#include "platform/values/decimal.h"

namespace tolvinpt {
class frmData;
}

namespace tolvinpt::frmdata {

// Decimals a quantity keeps.
constexpr int QuantityDecimals = 3;
// The smallest quantity a delivery can be broken down or split with, and that a split leaves: 0.001.
constexpr Currency SmallestQuantity = Currency::fromRaw(10);
// The largest quantity: 999999999.999.
constexpr Currency MaxQuantity = Currency::fromRaw(9'999'999'999'990);

// The leading number of `text` rounded half to even to three decimals, at currency precision.
Currency readQuantity(const QString& text);
// The leading number of `text` at currency precision (four decimals); beyond the range it saturates.
Currency readCurrency(const QString& text);

// Decimals a unit price keeps: three in yen, five in a foreign currency.
int priceDecimals(bool yen);
// The largest unit price: 999999999.999 in yen, 99999999999.99999 in a foreign currency.
Decimal maxPrice(bool yen);

// Hangs number keys, entry and leave rules on txtAmountOrder, txtAmountIndicate, txtAmountDelivery,
// txtQuantity and txtUnitPrice.
void installNumberRules(frmData& form);

} // namespace tolvinpt::frmdata
