#include "platform/values/currency.h"

#include <stdexcept>

namespace tolvinpt {

std::optional<Currency> Currency::fromString(const QString& text)
{
    const auto value = Decimal::fromStringRounded(text, Decimals);
    return value ? fromDecimal(*value) : std::nullopt;
}

std::optional<Currency> Currency::fromDecimal(const Decimal& value)
{
    const auto raw = value.toScaledInteger(Decimals);
    return raw ? std::optional(Currency(*raw)) : std::nullopt;
}

Currency operator+(Currency a, Currency b)
{
    std::int64_t sum = 0;
    if (__builtin_add_overflow(a.m_raw, b.m_raw, &sum))
        throw std::overflow_error("currency overflow");
    return Currency(sum);
}

Currency operator-(Currency a, Currency b)
{
    std::int64_t difference = 0;
    if (__builtin_sub_overflow(a.m_raw, b.m_raw, &difference))
        throw std::overflow_error("currency overflow");
    return Currency(difference);
}

} // namespace tolvinpt
