#include "platform/sql/sql_values.h"

#include <QLocale>

#include <cmath>

using namespace Qt::StringLiterals;

namespace tolvinpt::db {

bool isIntegerType(int type)
{
    switch (type) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
        return true;
    default:
        return false;
    }
}

namespace {

bool isFloatType(int type)
{
    return type == QMetaType::Double || type == QMetaType::Float;
}

// Shortest text that reads back as the same double, without exponent.
QString shortestText(double d)
{
    return QString::number(d, 'f', QLocale::FloatingPointShortest);
}

std::optional<qint64> integralDouble(double d)
{
    // 2^63 is exactly representable; anything from it upwards does not fit.
    constexpr double limit = 9223372036854775808.0;
    if (!std::isfinite(d) || d != std::trunc(d) || d >= limit || d < -limit)
        return std::nullopt;
    return static_cast<qint64>(d);
}

} // namespace

bool isNull(const QVariant& value)
{
    return value.isNull();
}

bool isDecimalText(QStringView text)
{
    qsizetype i = 0;
    if (i < text.size() && (text[i] == u'-' || text[i] == u'+'))
        ++i;
    int digits = 0;
    bool point = false;
    for (; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == u'.' && !point)
            point = true;
        else if (c >= u'0' && c <= u'9')
            ++digits;
        else
            return false;
    }
    return digits > 0;
}

std::optional<QString> readText(const QVariant& value)
{
    if (value.isNull())
        return std::nullopt;
    const int type = value.typeId();
    if (type == QMetaType::QString)
        return value.toString();
    if (isIntegerType(type))
        return value.toString();
    if (isFloatType(type))
        return shortestText(value.toDouble());
    return std::nullopt;
}

std::optional<qint64> readInteger(const QVariant& value)
{
    if (value.isNull())
        return std::nullopt;
    const int type = value.typeId();
    if (isIntegerType(type) || type == QMetaType::Bool) {
        bool ok = false;
        const qint64 v = value.toLongLong(&ok);
        return ok ? std::optional(v) : std::nullopt;
    }
    if (isFloatType(type))
        return integralDouble(value.toDouble());
    if (type == QMetaType::QString) {
        bool ok = false;
        const qint64 v = value.toString().toLongLong(&ok);
        return ok ? std::optional(v) : std::nullopt;
    }
    return std::nullopt;
}

std::optional<double> readDouble(const QVariant& value)
{
    if (value.isNull())
        return std::nullopt;
    const int type = value.typeId();
    if (isIntegerType(type) || isFloatType(type))
        return value.toDouble();
    if (type == QMetaType::QString) {
        const QString text = value.toString();
        if (!isDecimalText(text))
            return std::nullopt;
        return QLocale::c().toDouble(text);
    }
    return std::nullopt;
}

std::optional<bool> readBoolean(const QVariant& value)
{
    if (value.isNull())
        return std::nullopt;
    if (value.typeId() == QMetaType::Bool)
        return value.toBool();
    const auto number = readDouble(value);
    if (!number)
        return std::nullopt;
    return *number != 0;
}

std::optional<QDate> readDate(const QVariant& value)
{
    if (value.isNull())
        return std::nullopt;
    const int type = value.typeId();
    if (type == QMetaType::QDate)
        return value.toDate().isValid() ? std::optional(value.toDate()) : std::nullopt;
    if (type == QMetaType::QDateTime) {
        const QDate date = value.toDateTime().date();
        return date.isValid() ? std::optional(date) : std::nullopt;
    }
    if (type != QMetaType::QString)
        return std::nullopt;
    const QString text = value.toString();
    if (text.size() != 10 && !(text.size() == 19 && (text[10] == u' ' || text[10] == u'T')))
        return std::nullopt;
    const QDate date = QDate::fromString(text.left(10), u"yyyy-MM-dd"_s);
    if (!date.isValid())
        return std::nullopt;
    if (text.size() == 19 && !QTime::fromString(text.mid(11), u"HH:mm:ss"_s).isValid())
        return std::nullopt;
    return date;
}

std::optional<QDateTime> readDateTime(const QVariant& value)
{
    if (value.isNull())
        return std::nullopt;
    const int type = value.typeId();
    if (type == QMetaType::QDateTime)
        return value.toDateTime().isValid() ? std::optional(value.toDateTime()) : std::nullopt;
    const auto date = readDate(value);
    if (!date)
        return std::nullopt;
    QTime time(0, 0);
    if (type == QMetaType::QString && value.toString().size() == 19)
        time = QTime::fromString(value.toString().mid(11), u"HH:mm:ss"_s);
    return QDateTime(*date, time);
}

std::optional<QString> readDecimal(const QVariant& value)
{
    if (value.isNull())
        return std::nullopt;
    const int type = value.typeId();
    if (type == QMetaType::QString) {
        const QString text = value.toString();
        return isDecimalText(text) ? std::optional(text) : std::nullopt;
    }
    if (isIntegerType(type))
        return value.toString();
    // A value that reached the table as a double is already rounded; give its shortest exact text.
    if (isFloatType(type) && std::isfinite(value.toDouble()))
        return shortestText(value.toDouble());
    return std::nullopt;
}

std::optional<Currency> readCurrency(const QVariant& value)
{
    const auto text = readDecimal(value);
    if (!text)
        return std::nullopt;
    return Currency::fromString(*text);
}

} // namespace tolvinpt::db
