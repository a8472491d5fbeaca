#include "platform/values/number_text.h"

namespace tolvinpt {

namespace {

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

} // namespace

Decimal leadingNumber(const QString& text)
{
    bool negative = false, signRead = false, point = false;
    QString digits;
    qsizetype decimals = 0;
    for (const QChar c : text) {
        if (c == u' ' || c == u'\t' || c == u'\n')
            continue;
        if ((c == u'-' || c == u'+') && !signRead && !point && digits.isEmpty()) {
            signRead = true;
            negative = c == u'-';
        } else if (c == u'.' && !point) {
            point = true;
        } else if (isDigit(c)) {
            digits += c;
            if (point)
                ++decimals;
        } else {
            break;
        }
    }
    const auto value = Decimal::fromDigits(negative, digits, decimals);
    if (!value)
        return negative ? -Decimal::largest() : Decimal::largest();
    return *value;
}

std::optional<Decimal> strictDecimal(const QString& text)
{
    // Each comma must stand between two digits before the point; without them the text is plain.
    QString plain;
    plain.reserve(text.size());
    bool point = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'.')
            point = true;
        if (text[i] != u',') {
            plain += text[i];
            continue;
        }
        if (point || i == 0 || i + 1 == text.size() || !isDigit(text[i - 1]) || !isDigit(text[i + 1]))
            return std::nullopt;
    }
    return Decimal::fromStringRounded(plain);
}

QString formatNumber(const Decimal& value, int maxDecimals)
{
    return value.roundHalfEven(maxDecimals).toString();
}

QString formatFixed(const Decimal& value, int decimals)
{
    const Decimal rounded = value.roundHalfEven(decimals);
    QString text = rounded.toString();
    if (decimals > 0) {
        if (rounded.decimals() == 0)
            text += u'.';
        text += QString(decimals - rounded.decimals(), u'0');
    }
    return text;
}

} // namespace tolvinpt
