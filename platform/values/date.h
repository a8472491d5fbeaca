#pragma once

#include <QDate>
#include <QString>

#include <optional>

namespace tolvinpt {

// Dates as the operator types and sees them: eight digits "yyyymmdd", or six digits "yymmdd" whose
// year lies in the window 1951 to 2050, the same range in which a date is accepted at all.

// The accepted range, both ends inclusive.
inline constexpr int FirstAcceptedYear = 1951;
inline constexpr int LastAcceptedYear = 2050;
QDate firstAcceptedDate(); // 1951-01-01
QDate lastAcceptedDate();  // 2050-12-31
bool isAcceptedDate(const QDate& date);

// Two-digit year of the six-digit form (0 to 99): 50 or less is 20yy, above 50 is 19yy.
int expandTwoDigitYear(int yy);

// True for a day of the Gregorian calendar in the years 1 to 9999 (there is no year 0).
bool isCalendarDate(int year, int month, int day);

// Eight ASCII digits "yyyymmdd"; empty text for an invalid date or a year outside 1 to 9999.
QString toYmd(const QDate& date);
// The date written by exactly eight ASCII digits "yyyymmdd", or nullopt: any other text, or digits
// that name no calendar day ("20050230", "20051301", "20050100", "19000229").
std::optional<QDate> fromYmd(const QString& text);

} // namespace tolvinpt
