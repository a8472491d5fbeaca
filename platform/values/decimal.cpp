#include "platform/values/decimal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string_view>

namespace tolvinpt {

namespace {

using Magnitude = unsigned __int128;
using Signed = __int128;

constexpr Magnitude pow10(int n) // n up to 38
{
    Magnitude p = 1;
    while (n-- > 0)
        p *= 10;
    return p;
}

constexpr Magnitude DigitLimit = pow10(Decimal::MaxDigits);
constexpr Magnitude Pow19 = pow10(19);

QString digitsOf(Magnitude m)
{
    std::array<char16_t, 40> buffer;
    auto end = buffer.end(), p = end;
    do {
        *--p = char16_t(u'0' + int(m % 10));
        m /= 10;
    } while (m != 0);
    return QString::fromUtf16(p, end - p);
}

int digitCount(Magnitude m)
{
    int n = 1;
    while (m >= 10) {
        m /= 10;
        ++n;
    }
    return n;
}

bool isBlank(QChar c)
{
    return c == u' ' || c == u'\t';
}

struct ScannedNumber
{
    bool negative = false;
    QString digits;
    qsizetype decimals = 0;
};

// Plain decimal text, see Decimal::fromString.
std::optional<ScannedNumber> scanPlain(QStringView text)
{
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.mid(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    ScannedNumber number;
    if (!text.isEmpty() && (text.front() == u'-' || text.front() == u'+')) {
        number.negative = text.front() == u'-';
        text = text.mid(1);
    }
    bool point = false;
    for (const QChar c : text) {
        if (c == u'.' && !point) {
            point = true;
        } else if (c >= u'0' && c <= u'9') {
            number.digits += c;
            if (point)
                ++number.decimals;
        } else {
            return std::nullopt;
        }
    }
    if (number.digits.isEmpty())
        return std::nullopt;
    return number;
}

} // namespace

Decimal::Decimal(bool negative, Magnitude magnitude, int scale) : m_magnitude(magnitude), m_scale(scale)
{
    while (m_scale > 0 && m_magnitude % 10 == 0) {
        m_magnitude /= 10;
        --m_scale;
    }
    m_negative = negative && m_magnitude != 0;
}

Decimal Decimal::fromInteger(std::int64_t value)
{
    return fromScaledInteger(value, 0);
}

Decimal Decimal::fromScaledInteger(std::int64_t value, int decimals)
{
    // Through unsigned, so that the minimum of int64 converts too.
    const std::uint64_t magnitude = value < 0 ? 0 - std::uint64_t(value) : std::uint64_t(value);
    return Decimal(value < 0, magnitude, std::clamp(decimals, 0, MaxDecimals));
}

Decimal Decimal::largest()
{
    return Decimal(false, DigitLimit - 1, 0);
}

std::optional<Decimal> Decimal::fromDigits(bool negative, QStringView digits, qsizetype decimals,
                                           int maxDecimals, bool* exact)
{
    while (!digits.isEmpty() && digits.front() == u'0')
        digits = digits.mid(1);
    const qsizetype integerDigits = digits.size() - decimals;
    if (integerDigits > MaxDigits)
        return std::nullopt;
    qsizetype scale = std::min<qsizetype>({decimals, std::clamp(maxDecimals, 0, MaxDecimals)});
    if (integerDigits > 0)
        scale = std::min<qsizetype>(scale, MaxDigits - integerDigits);
    // The digits before the cut make the magnitude; a negative count means every digit lies below
    // the first dropped place, which is then an implicit zero.
    const qsizetype keep = digits.size() - (decimals - scale);
    Magnitude magnitude = 0;
    for (qsizetype i = 0; i < keep; ++i)
        magnitude = magnitude * 10 + (digits[i].unicode() - u'0');
    const int dropped = keep >= 0 && keep < digits.size() ? digits[keep].unicode() - u'0' : 0;
    const QStringView rest = digits.mid(std::max<qsizetype>(keep + 1, 0));
    const bool sticky = std::any_of(rest.begin(), rest.end(), [](QChar c) { return c != u'0'; });
    if (exact)
        *exact = dropped == 0 && !sticky;
    if (dropped > 5 || (dropped == 5 && (sticky || magnitude % 2 == 1)))
        ++magnitude;
    if (magnitude == DigitLimit) { // 99...9 rounded up to one digit more
        if (scale == 0)
            return std::nullopt;
        magnitude /= 10;
        --scale;
    }
    return Decimal(negative, magnitude, int(scale));
}

std::optional<Decimal> Decimal::fromString(QStringView text)
{
    const auto number = scanPlain(text);
    if (!number)
        return std::nullopt;
    bool exact = false;
    auto value = fromDigits(number->negative, number->digits, number->decimals, MaxDecimals, &exact);
    return exact ? value : std::nullopt;
}

std::optional<Decimal> Decimal::fromStringRounded(QStringView text, int decimals)
{
    const auto number = scanPlain(text);
    if (!number)
        return std::nullopt;
    return fromDigits(number->negative, number->digits, number->decimals, decimals);
}

std::optional<Decimal> Decimal::fromDouble(double value)
{
    if (!std::isfinite(value))
        return std::nullopt;
    // Shortest round trip, as mantissa and exponent: "-1.2345e+03".
    std::array<char, 64> text;
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific);
    if (error != std::errc())
        return std::nullopt;
    const std::string_view written(text.data(), end - text.data());
    const auto e = written.find('e');
    int exponent = 0;
    std::from_chars(written.data() + e + 1 + (written[e + 1] == '+'), end, exponent);
    QString digits;
    for (const char c : written.substr(0, e))
        if (c >= '0' && c <= '9')
            digits += QLatin1Char(c);
    qsizetype decimals = digits.size() - 1 - exponent;
    if (digits.size() - decimals > MaxDigits)
        return std::nullopt;
    if (decimals < 0) {
        digits += QString(-decimals, u'0');
        decimals = 0;
    }
    return fromDigits(value < 0, digits, decimals);
}

QString Decimal::toString() const
{
    QString text = digitsOf(m_magnitude);
    if (m_scale > 0) {
        if (text.size() <= m_scale)
            text = QString(m_scale + 1 - text.size(), u'0') + text;
        text.insert(text.size() - m_scale, u'.');
    }
    return m_negative ? u'-' + text : text;
}

double Decimal::toDouble() const
{
    const QByteArray text = toString().toLatin1();
    double value = 0;
    std::from_chars(text.constData(), text.constData() + text.size(), value);
    return value;
}

std::optional<std::int64_t> Decimal::toScaledInteger(int decimals) const
{
    decimals = std::clamp(decimals, 0, MaxDecimals);
    const Decimal rounded = roundHalfEven(decimals);
    const int shift = decimals - rounded.m_scale;
    if (digitCount(rounded.m_magnitude) + shift > 19)
        return std::nullopt;
    const Magnitude scaled = rounded.m_magnitude * pow10(shift);
    const Magnitude limit = Magnitude(std::numeric_limits<std::int64_t>::max()) + (m_negative ? 1 : 0);
    if (scaled > limit)
        return std::nullopt;
    const auto bits = std::uint64_t(scaled);
    return m_negative ? std::int64_t(0 - bits) : std::int64_t(bits);
}

Decimal Decimal::roundHalfEven(int decimals) const
{
    if (decimals >= m_scale)
        return *this;
    // Keeps at most as many digits as it had, so it never overflows.
    return *fromDigits(m_negative, digitsOf(m_magnitude), m_scale, decimals);
}

Decimal Decimal::operator-() const
{
    return Decimal(!m_negative, m_magnitude, m_scale);
}

Decimal operator+(const Decimal& a, const Decimal& b)
{
    // Align both to the longer fraction. Where that would take the other operand beyond 36 digits,
    // cut the longer fraction instead and keep one sticky digit for what was cut: the sum is rounded
    // to 28 digits at least eight places above it, so the sticky digit still decides every tie.
    const Decimal& coarse = a.m_scale <= b.m_scale ? a : b;
    const Decimal& fine = a.m_scale <= b.m_scale ? b : a;
    int scale = fine.m_scale;
    Magnitude fineMagnitude = fine.m_magnitude;
    const int room = 36 - digitCount(coarse.m_magnitude);
    if (scale - coarse.m_scale > room) {
        const int cut = scale - coarse.m_scale - room;
        const Magnitude unit = pow10(cut);
        fineMagnitude = fineMagnitude / unit * 10 + (fineMagnitude % unit != 0 ? 1 : 0);
        scale -= cut - 1;
    }
    const Magnitude coarseMagnitude = coarse.m_magnitude * pow10(scale - coarse.m_scale);
    const Signed sum = (coarse.m_negative ? -Signed(coarseMagnitude) : Signed(coarseMagnitude)) +
                       (fine.m_negative ? -Signed(fineMagnitude) : Signed(fineMagnitude));
    const auto result = Decimal::fromDigits(sum < 0, digitsOf(Magnitude(sum < 0 ? -sum : sum)), scale);
    if (!result)
        throw std::overflow_error("decimal overflow");
    return *result;
}

Decimal operator*(const Decimal& a, std::int64_t factor)
{
    // In two halves of 19 digits, so that no partial product leaves 128 bits.
    const std::uint64_t f = factor < 0 ? 0 - std::uint64_t(factor) : std::uint64_t(factor);
    const Magnitude low = a.m_magnitude % Pow19 * f;
    const Magnitude high = a.m_magnitude / Pow19 * f + low / Pow19;
    QString digits = digitsOf(low % Pow19);
    if (high != 0)
        digits = digitsOf(high) + QString(19 - digits.size(), u'0') + digits;
    const auto result = Decimal::fromDigits(a.m_negative != (factor < 0), digits, a.m_scale);
    if (!result)
        throw std::overflow_error("decimal overflow");
    return *result;
}

std::strong_ordering operator<=>(const Decimal& a, const Decimal& b)
{
    if (a.m_negative != b.m_negative)
        return a.m_negative ? std::strong_ordering::less : std::strong_ordering::greater;
    // Integer parts first, then the fractions widened to 28 places.
    const auto split = [](const Decimal& d) {
        const Magnitude unit = pow10(d.m_scale);
        return std::pair(d.m_magnitude / unit,
                         d.m_magnitude % unit * pow10(Decimal::MaxDecimals - d.m_scale));
    };
    const auto [ai, af] = split(a);
    const auto [bi, bf] = split(b);
    const auto magnitude = ai != bi   ? (ai < bi ? std::strong_ordering::less : std::strong_ordering::greater)
                           : af != bf ? (af < bf ? std::strong_ordering::less : std::strong_ordering::greater)
                                      : std::strong_ordering::equal;
    return a.m_negative ? 0 <=> magnitude : magnitude;
}

} // namespace tolvinpt
