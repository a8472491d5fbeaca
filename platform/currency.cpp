#include "platform/currency.h"

#include <limits>

namespace tolvinpt {

std::optional<Currency> Currency::fromString(const QString& text)
{
    const QString t = text.trimmed();
    qsizetype i = 0;
    const bool negative = i < t.size() && t[i] == u'-';
    if (negative || (i < t.size() && t[i] == u'+'))
        ++i;
    // Accumulate as a negative number so that the minimum of int64 parses too.
    constexpr std::int64_t min = std::numeric_limits<std::int64_t>::min();
    std::int64_t acc = 0;
    int digits = 0, decimals = 0;
    bool point = false, roundUp = false, sticky = false;
    int dropped = -1; // first digit past the fourth decimal
    for (; i < t.size(); ++i) {
        const QChar c = t[i];
        if (c == u'.' && !point) {
            point = true;
            continue;
        }
        if (c < u'0' || c > u'9')
            return std::nullopt;
        const int d = c.unicode() - u'0';
        ++digits;
        if (point && decimals == 4) {
            if (dropped < 0)
                dropped = d;
            else if (d != 0)
                sticky = true;
            continue;
        }
        if (acc < (min + d) / 10)
            return std::nullopt;
        acc = acc * 10 - d;
        if (point)
            ++decimals;
    }
    if (digits == 0)
        return std::nullopt;
    for (; decimals < 4; ++decimals) {
        if (acc < min / 10)
            return std::nullopt;
        acc *= 10;
    }
    if (dropped > 5 || (dropped == 5 && (sticky || (-acc) % 2 != 0)))
        roundUp = true;
    if (roundUp) {
        if (acc == min)
            return std::nullopt;
        acc -= 1;
    }
    if (!negative) {
        if (acc == min)
            return std::nullopt;
        acc = -acc;
    }
    return Currency(acc);
}

QString Currency::toString() const
{
    const bool negative = m_raw < 0;
    // Work in unsigned so that the minimum of int64 prints too.
    const std::uint64_t magnitude = negative ? 0 - static_cast<std::uint64_t>(m_raw) : static_cast<std::uint64_t>(m_raw);
    QString s = QString::number(magnitude / Scale);
    std::uint64_t fraction = magnitude % Scale;
    if (fraction != 0) {
        QString f = QString::number(fraction).rightJustified(4, u'0');
        while (f.endsWith(u'0'))
            f.chop(1);
        s += u'.' + f;
    }
    return negative ? u'-' + s : s;
}

} // namespace tolvinpt
