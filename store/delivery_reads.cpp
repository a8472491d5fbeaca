#include "store/delivery_reads.h"

#include "platform/database.h"
#include "platform/sql_dialect.h"
#include "platform/sql_values.h"
#include "store/package_quantities.h"

using namespace Qt::StringLiterals;

namespace tolvinpt {

namespace {

// The columns are named rather than '*': their positions are then those of DeliveryColumn, and columns
// that a host added to the table are not transferred.
QString selectColumns()
{
    QString list;
    for (const DeliveryColumnInfo& info : deliveryColumns())
        list += (list.isEmpty() ? u""_s : u", "_s) + info.name;
    return u"SELECT "_s + list + u" FROM T_Delivery"_s;
}

} // namespace

QString deliveryRecordSql()
{
    return selectColumns() + u" WHERE IDData = ?"_s;
}

QString packageRowsSql()
{
    return u"SELECT Quantity FROM T_DeliveryQTY WHERE IDData = ? ORDER BY Sequence"_s;
}

QString orderKeySql(const db::SqlDialect& dialect)
{
    return u"SELECT IDData FROM T_Delivery WHERE IDCustomer = ? AND "_s + dialect.isFalse(u"InDustBox"_s) +
           u" AND "_s + dialect.textEquals(u"F00007"_s) + u" AND "_s + dialect.textEquals(u"F00159"_s);
}

std::optional<DeliveryRecord> readDeliveryRecord(db::Database& database, qint64 id)
{
    static const QString sql = deliveryRecordSql();
    db::Statement statement = database.prepare(sql);
    statement.bind(0, id).exec();
    if (!statement.next())
        return std::nullopt;
    std::optional<DeliveryRecord> record(std::in_place);
    for (int i = 0; i < DeliveryColumnCount; ++i)
        record->set(static_cast<DeliveryColumn>(i), statement.value(i));
    return record;
}

std::optional<QString> readDeliveryKey(db::Database& database, qint64 id)
{
    const auto key = database.scalar(u"SELECT F00159 FROM T_Delivery WHERE IDData = ?"_s, {id});
    if (!key)
        return std::nullopt;
    return db::readText(*key).value_or(QString());
}

PackageRows readPackageRows(db::Database& database, qint64 id)
{
    db::Statement statement = database.prepare(packageRowsSql());
    statement.bind(0, id).exec();
    PackageRows rows;
    while (statement.next()) {
        if (rows.quantities.size() == MaxPackages) {
            rows.truncated = true;
            break;
        }
        rows.quantities.push_back(db::readCurrency(statement.value(0)));
    }
    return rows;
}

std::optional<qint64> findLiveRecordByOrderKey(db::Database& database, qint64 customer,
                                               const QString& orderNumber, const QString& deliveryKey)
{
    db::Statement statement = database.prepare(orderKeySql(database.dialect()));
    statement.bind({customer, orderNumber, deliveryKey}).exec();
    if (!statement.next())
        return std::nullopt;
    return db::readInteger(statement.value(0));
}

} // namespace tolvinpt
