#pragma once

#include "platform/values/currency.h"

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QVariant>

#include <optional>

namespace tolvinpt::db {

// A whole-number value type of QVariant (any width, signed or not).
bool isIntegerType(int type);

// Reading a stored value back as one of our types, whatever representation the engine returned it in
// (SQLite gives text, integers and doubles; another engine may give dates and booleans). None of these
// throws: nullopt means Null or a value that is not of the kind asked for, and isNull() tells the two apart.

bool isNull(const QVariant& value);

// Text as stored; a number converts to its plain decimal text.
std::optional<QString> readText(const QVariant& value);
// A whole number: an integer, an integral double, or text that is a plain integer.
std::optional<qint64> readInteger(const QVariant& value);
std::optional<double> readDouble(const QVariant& value);
// Zero is False, any other number True.
std::optional<bool> readBoolean(const QVariant& value);
// 'YYYY-MM-DD', also the date part of 'YYYY-MM-DD HH:MM:SS'.
std::optional<QDate> readDate(const QVariant& value);
// 'YYYY-MM-DD HH:MM:SS' (or 'T' between date and time); a bare date is its midnight.
std::optional<QDateTime> readDateTime(const QVariant& value);
// An exact decimal as plain decimal text ("-12.50", "99999999999.99999"): never passes through double
// when it was stored as text. The conversion to a number type happens above the store.
std::optional<QString> readDecimal(const QVariant& value);
// A currency-precision value (four decimals, rounded half to even past them).
std::optional<Currency> readCurrency(const QVariant& value);

// True when `text` is plain decimal text: optional sign, digits, optional point and digits.
bool isDecimalText(QStringView text);

} // namespace tolvinpt::db
