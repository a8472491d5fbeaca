#include "store/delivery_reads.h"

#include "platform/sql/database.h"
#include "platform/sql/sql_dialect.h"
#include "platform/sql/sql_values.h"
#include "platform/sql/transaction.h"
#include "store/package_quantities.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace tolvinpt {

namespace {

// The DeliveryColumn of each result column by its name, letter case ignored as SQL does; worked out
// again only when the statement's names change, not on every read.
const std::vector<std::optional<DeliveryColumn>>& columnsNamed(const QStringList& names)
{
    static QStringList known;
    static std::vector<std::optional<DeliveryColumn>> columns;
    if (names == known && columns.size() == std::size_t(names.size()))
        return columns;
    known = names;
    columns.assign(std::size_t(names.size()), std::nullopt);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        for (const DeliveryColumnInfo& info : deliveryColumns()) {
            if (names[qsizetype(i)].compare(info.name, Qt::CaseInsensitive) == 0)
                columns[i] = info.column;
        }
    }
    return columns;
}

} // namespace

QString deliveryRecordSql()
{
    // '*' rather than our column names: a column that the host's table lacks must not fail the read.
    return u"SELECT * FROM T_Delivery WHERE IDData = ?"_s;
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
    return deliveryRecordOfRow(statement);
}

DeliveryRecord deliveryRecordOfRow(const db::Statement& statement)
{
    DeliveryRecord record;
    const auto& columns = columnsNamed(statement.columnNames());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i])
            record.set(*columns[i], statement.value(int(i)));
    }
    return record;
}

std::vector<std::optional<QString>> readDeliveryKeys(db::Database& database, const std::vector<qint64>& ids)
{
    // In ascending id order, so that consecutive lookups walk the same pages of the key's index.
    std::vector<std::size_t> order(ids.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return ids[a] < ids[b]; });

    std::vector<std::optional<QString>> keys(ids.size());
    const db::Transaction snapshot(database, db::Transaction::Kind::Read);
    db::Statement statement = database.prepare(u"SELECT F00159 FROM T_Delivery WHERE IDData = ?"_s);
    for (std::size_t i = 0; i < order.size(); ++i) {
        const std::size_t at = order[i];
        if (i > 0 && ids[at] == ids[order[i - 1]]) {
            keys[at] = keys[order[i - 1]];
            continue;
        }
        statement.bind(0, ids[at]).exec();
        if (statement.next())
            keys[at] = db::readText(statement.value(0)).value_or(QString());
    }
    return keys;
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
