#pragma once

#include "platform/values/decimal.h"

#include <QString>

#include <optional>

namespace tolvinpt {

// Leading-number reading, lenient: the value of the longest leading part of `text` that forms a
// decimal number; 0 when there is none. Blanks (space, tab, line feed) are skipped wherever they
// stand, also between digits. Then an optional "+" or "-", ASCII digits and at most one ".".
// Reading stops at the first other character: "12.5.3" gives 12.5, " 1 2" 12, "1,000" 1, "abc" 0.
// There is no exponent ("1e3" gives 1) and no "&H" prefix; full-width digits are not digits.
// Digits beyond the 28th significant one are rounded half to even; more than 28 integer digits
// saturate at Decimal::largest() with the sign read.
Decimal leadingNumber(const QString& text);

// Strict decimal conversion: the whole of `text` must be one number in the C and Japanese number
// format, or the result is nullopt.
//     blanks? sign? integer-part ("." digits?)? blanks?   or   blanks? sign? "." digits blanks?
// Blanks are spaces and tabs; the sign is "+" or "-"; the integer part is ASCII digits in which a
// "," may stand between two digits (group sizes are not checked: "1,234" and "12,34" both read);
// at least one digit in all. No exponent, no currency sign, no second point: "1.2.3", "", "-",
// "1e3" and "１２" give nullopt. Digits beyond the 28th significant one are rounded half to even;
// more than 28 integer digits give nullopt.
std::optional<Decimal> strictDecimal(const QString& text);

// Display format with up to `maxDecimals` decimals ("#0.###" for 3, "#0.#####" for 5): rounded half
// to even, at least one integer digit, no thousands separator, no trailing zeros, no trailing point,
// never "-0": 12 shows "12", 12.5 "12.5", 1234.5678 (3) "1234.568", -0.0001 (3) "0".
QString formatNumber(const Decimal& value, int maxDecimals);

// Display format with exactly `decimals` decimals ("#0.000" for 3): rounded half to even, at least one
// integer digit, no thousands separator, never "-0": 0 shows "0.000", 12.5 "12.500", 2.0005 "2.000".
QString formatFixed(const Decimal& value, int decimals);

} // namespace tolvinpt
