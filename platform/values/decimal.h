#pragma once

#include <QString>

#include <compare>
#include <cstdint>
#include <optional>

namespace tolvinpt {

// An exact decimal number of up to 28 significant digits with up to 28 decimals: unit prices and every
// value that must never pass through binary floating point. Always held in its shortest form (no
// trailing zeros after the point, no negative zero), so equal values compare equal member by member.
// Rounding is half to even everywhere.
class Decimal
{
public:
    static constexpr int MaxDigits = 28; // significant digits
    static constexpr int MaxDecimals = 28;

    constexpr Decimal() = default;
    static Decimal fromInteger(std::int64_t value);
    // value / 10^decimals, exactly (decimals 0 to 28).
    static Decimal fromScaledInteger(std::int64_t value, int decimals);
    // The largest value, 28 nines; its negation is the smallest.
    static Decimal largest();

    // Plain decimal text: optional blanks (spaces, tabs) around an optional sign, digits and at most
    // one point, at least one digit ("-12.50", ".5", "3."). The exact value, or nullopt for any other
    // text and for a value that needs more than 28 significant digits or decimals.
    static std::optional<Decimal> fromString(QStringView text);
    // The same text, rounded to `decimals` places (0 to 28) and to 28 significant digits; nullopt for
    // other text and for more than 28 integer digits.
    static std::optional<Decimal> fromStringRounded(QStringView text, int decimals = MaxDecimals);
    // The one place where digits read from text become a value. `digits` holds ASCII digits only, the
    // last `decimals` of them after the point (more decimals than digits means leading zeros). Rounds
    // to `maxDecimals` places and 28 significant digits; nullopt for more than 28 integer digits.
    // `exact`, when given, tells whether nothing but zeros was rounded away.
    static std::optional<Decimal> fromDigits(bool negative, QStringView digits, qsizetype decimals,
                                             int maxDecimals = MaxDecimals, bool* exact = nullptr);
    // A value that a column delivered as a double: the shortest text that reads back as the same
    // double (0.1 gives 0.1, not 0.1000000000000000055...), rounded to 28 decimals. Nullopt for
    // infinity, NaN and more than 28 integer digits.
    static std::optional<Decimal> fromDouble(double value);

    // Plain text: no exponent, no thousands separator, no trailing zeros: "12", "-0.5", "1234.5678".
    QString toString() const;
    // The double nearest to the value, for columns written as double.
    double toDouble() const;
    // value * 10^decimals (0 to 28) rounded half to even, or nullopt when that does not fit 64 bits.
    std::optional<std::int64_t> toScaledInteger(int decimals) const;

    bool isZero() const { return m_magnitude == 0; }
    bool isNegative() const { return m_negative; }
    // Number of decimals of the shortest form: 0 for 12, 3 for 1.125.
    int decimals() const { return m_scale; }
    // Rounded half to even to `decimals` places (0 to 28): 2.0005 gives 2, 2.0015 gives 2.002.
    Decimal roundHalfEven(int decimals) const;

    // Results are rounded to 28 significant digits; more than 28 integer digits throw std::overflow_error.
    Decimal operator-() const;
    friend Decimal operator+(const Decimal& a, const Decimal& b);
    friend Decimal operator-(const Decimal& a, const Decimal& b) { return a + -b; }
    friend Decimal operator*(const Decimal& a, std::int64_t factor);

    friend bool operator==(const Decimal&, const Decimal&) = default;
    friend std::strong_ordering operator<=>(const Decimal& a, const Decimal& b);

private:
    using Magnitude = unsigned __int128;
    Decimal(bool negative, Magnitude magnitude, int scale);

    Magnitude m_magnitude = 0; // value = ±m_magnitude / 10^m_scale, below 10^28
    int m_scale = 0;
    bool m_negative = false;
};

} // namespace tolvinpt
