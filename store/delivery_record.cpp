#include "store/delivery_record.h"

#include "platform/sql/sql_values.h"

namespace tolvinpt {

void DeliveryRecord::set(DeliveryColumn column, const QVariant& value)
{
    m_values[index(column)] = value;
    m_present.set(index(column));
}

void DeliveryRecord::set(DeliveryColumn column, QVariant&& value)
{
    m_values[index(column)] = std::move(value);
    m_present.set(index(column));
}

std::optional<QString> DeliveryRecord::text(DeliveryColumn column) const
{
    return db::readText(present(column));
}

std::optional<qint64> DeliveryRecord::integer(DeliveryColumn column) const
{
    return db::readInteger(present(column));
}

std::optional<int> DeliveryRecord::smallInteger(DeliveryColumn column) const
{
    const auto value = integer(column);
    if (!value || *value < -32768 || *value > 32767)
        return std::nullopt;
    return static_cast<int>(*value);
}

std::optional<double> DeliveryRecord::number(DeliveryColumn column) const
{
    return db::readDouble(present(column));
}

std::optional<QDate> DeliveryRecord::date(DeliveryColumn column) const
{
    return db::readDate(present(column));
}

std::optional<QDateTime> DeliveryRecord::dateTime(DeliveryColumn column) const
{
    return db::readDateTime(present(column));
}

std::optional<QString> DeliveryRecord::decimal(DeliveryColumn column) const
{
    return db::readDecimal(present(column));
}

std::optional<Currency> DeliveryRecord::currency(DeliveryColumn column) const
{
    return db::readCurrency(present(column));
}

std::optional<bool> DeliveryRecord::boolean(DeliveryColumn column) const
{
    return db::readBoolean(present(column));
}

} // namespace tolvinpt
