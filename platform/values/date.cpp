#include "platform/values/date.h"

namespace tolvinpt {

QDate firstAcceptedDate()
{
    return QDate(FirstAcceptedYear, 1, 1);
}

QDate lastAcceptedDate()
{
    return QDate(LastAcceptedYear, 12, 31);
}

bool isAcceptedDate(const QDate& date)
{
    return date.isValid() && date >= firstAcceptedDate() && date <= lastAcceptedDate();
}

int expandTwoDigitYear(int yy)
{
    return yy <= 50 ? 2000 + yy : 1900 + yy;
}

bool isCalendarDate(int year, int month, int day)
{
    return year >= 1 && year <= 9999 && QDate::isValid(year, month, day);
}

QString toYmd(const QDate& date)
{
    if (!date.isValid() || date.year() < 1 || date.year() > 9999)
        return {};
    return QStringLiteral("%1%2%3")
        .arg(date.year(), 4, 10, QLatin1Char('0'))
        .arg(date.month(), 2, 10, QLatin1Char('0'))
        .arg(date.day(), 2, 10, QLatin1Char('0'));
}

std::optional<QDate> fromYmd(const QString& text)
{
    if (text.size() != 8)
        return std::nullopt;
    int digits[8];
    for (int i = 0; i < 8; ++i) {
        if (text[i] < u'0' || text[i] > u'9')
            return std::nullopt;
        digits[i] = text[i].unicode() - u'0';
    }
    const int year = digits[0] * 1000 + digits[1] * 100 + digits[2] * 10 + digits[3];
    const int month = digits[4] * 10 + digits[5];
    const int day = digits[6] * 10 + digits[7];
    if (!isCalendarDate(year, month, day))
        return std::nullopt;
    return QDate(year, month, day);
}

} // namespace tolvinpt
