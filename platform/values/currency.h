#pragma once

#include "platform/values/decimal.h"

#include <QString>

#include <compare>
#include <cstdint>
#include <optional>

namespace tolvinpt {

// Fixed point with four decimals, held as a 64-bit integer scaled by 10,000: the exact range of the
// quantities and package sizes (up to 922,337,203,685,477.5807).
class Currency
{
public:
    static constexpr int Decimals = 4;
    static constexpr std::int64_t Scale = 10000;

    constexpr Currency() = default;
    static constexpr Currency fromRaw(std::int64_t raw) { return Currency(raw); }
    static constexpr Currency fromInteger(std::int64_t units) { return Currency(units * Scale); }
    // Exact parse of plain decimal text ("-12.5", "922337203685477.5807", as Decimal::fromString reads
    // it); more than four decimals are rounded half to even; nullopt for anything else or out of range.
    static std::optional<Currency> fromString(const QString& text);
    // `value` rounded half to even to four decimals; nullopt when that is out of range.
    static std::optional<Currency> fromDecimal(const Decimal& value);

    constexpr std::int64_t raw() const { return m_raw; }
    constexpr bool isZero() const { return m_raw == 0; }
    // Exact, always: every Currency value has at most 19 digits.
    Decimal toDecimal() const { return Decimal::fromScaledInteger(m_raw, Decimals); }
    // Plain decimal text without trailing zeros: "1500", "2.5", "-0.0001".
    QString toString() const { return toDecimal().toString(); }

    // Sums beyond the range throw std::overflow_error.
    friend Currency operator+(Currency a, Currency b);
    friend Currency operator-(Currency a, Currency b);

    friend constexpr auto operator<=>(Currency, Currency) = default;

private:
    constexpr explicit Currency(std::int64_t raw) : m_raw(raw) {}
    std::int64_t m_raw = 0;
};

} // namespace tolvinpt
