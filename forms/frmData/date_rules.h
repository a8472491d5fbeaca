#pragma once

// The date fields txtDate(0) (due), txtDate(1) (ship) and txtDate(2) (delivery): digits only, six or
// eight of them, shown as eight; the ship date never lies after the delivery date.

#include <QDate>
#include <QString>
#include <QStringView>

namespace tolvinpt {
class frmData;
}

namespace tolvinpt::frmdata {

// A typed date: the date it names, or why it is refused (the message to show; empty when accepted).
struct TypedDate
{
    QDate date;
    QStringView refusal;
};

// Reads six digits "yymmdd" (00 to 50 are 2000 to 2050, 51 to 99 are 1951 to 1999) or eight digits
// "yyyymmdd", accepted from 1951-01-01 to 2050-12-31. Empty text is not a date: callers accept it first.
TypedDate readTypedDate(const QString& text);

// Hangs digit keys and the leave rule on the three date fields.
void installDateRules(frmData& form);

} // namespace tolvinpt::frmdata
