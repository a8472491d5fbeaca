#pragma once

#include "platform/values/currency.h"
#include "store/delivery_columns.h"

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QVariant>

#include <array>
#include <bitset>
#include <optional>

namespace tolvinpt {

// One row of T_Delivery: each column's value as the database returned it, converted per column on demand.
// No conversion throws: nullopt stands for Null, a column the row did not have, or a value that is not of
// the kind asked for, so that the record display can fill each field on its own and leave a field as the
// cleared form had it where its column is bad. isNull() and has() tell those cases apart.
class DeliveryRecord
{
public:
    // A column's value: as read, or one of ours to write (QDate, QDateTime, bool, decimal text, numbers).
    void set(DeliveryColumn column, const QVariant& value);
    void set(DeliveryColumn column, QVariant&& value);
    void setNull(DeliveryColumn column) { set(column, QVariant()); }

    bool has(DeliveryColumn column) const { return m_present.test(index(column)); }
    bool isNull(DeliveryColumn column) const { return has(column) && value(column).isNull(); }
    const QVariant& value(DeliveryColumn column) const { return m_values[index(column)]; }

    std::optional<qint64> id() const { return integer(DeliveryColumn::IDData); }
    // Text as stored; a number converts to its plain decimal text.
    std::optional<QString> text(DeliveryColumn column) const;
    std::optional<qint64> integer(DeliveryColumn column) const;
    // A whole number of 16 bits.
    std::optional<int> smallInteger(DeliveryColumn column) const;
    std::optional<double> number(DeliveryColumn column) const;
    std::optional<QDate> date(DeliveryColumn column) const;
    std::optional<QDateTime> dateTime(DeliveryColumn column) const;
    // Exact decimal as plain decimal text; the Decimal number type is made from it above the store.
    std::optional<QString> decimal(DeliveryColumn column) const;
    std::optional<Currency> currency(DeliveryColumn column) const;
    // Any non-zero value is True.
    std::optional<bool> boolean(DeliveryColumn column) const;

private:
    static std::size_t index(DeliveryColumn column) { return static_cast<std::size_t>(column); }
    // The value when the row has the column; null otherwise.
    QVariant present(DeliveryColumn column) const { return has(column) ? value(column) : QVariant(); }

    std::array<QVariant, DeliveryColumnCount> m_values;
    std::bitset<DeliveryColumnCount> m_present;
};

} // namespace tolvinpt
