#pragma once

#include "platform/values/currency.h"
#include "store/delivery_record.h"

#include <optional>
#include <vector>

namespace tolvinpt {

namespace db {
class Database;
class SqlDialect;
class Statement;
} // namespace db

// Reads of the delivery tables. Each throws DatabaseError when the engine fails.
// Threading: UI thread only, like the connection.

// The record with that IDData; nullopt when there is none. The row is read whole and its columns are
// taken by name, so a column that the host's table lacks is missing from the record (has() is false)
// and fails nothing else.
std::optional<DeliveryRecord> readDeliveryRecord(db::Database& database, qint64 id);
// The current row of a `SELECT *` on T_Delivery, read the same way.
DeliveryRecord deliveryRecordOfRow(const db::Statement& statement);

// The delivery key numbers (F00159) of the records `ids`, for the record list, read in one read
// transaction: per id its key, empty text when it is Null, nullopt when there is no such record.
std::vector<std::optional<QString>> readDeliveryKeys(db::Database& database, const std::vector<qint64>& ids);

// The per-package quantities of a record in Sequence order (the Sequence values themselves are not
// consulted): at most MaxPackages, each nullopt where the stored quantity is Null or not a number.
struct PackageRows
{
    std::vector<std::optional<Currency>> quantities;
    // The record has more rows than a package list can hold; those past the last are ignored.
    bool truncated = false;

    friend bool operator==(const PackageRows&, const PackageRows&) = default;
};
PackageRows readPackageRows(db::Database& database, qint64 id);

// IDData of the first live record (not in the waste box) of `customer` with this order number and delivery
// key number, compared as the database compares text (letter case ignored, no trimming).
std::optional<qint64> findLiveRecordByOrderKey(db::Database& database, qint64 customer,
                                               const QString& orderNumber, const QString& deliveryKey);

// The statement texts of these reads, for query plans and benchmarks.
QString deliveryRecordSql();
QString packageRowsSql();
QString orderKeySql(const db::SqlDialect& dialect);
// The order search (findOrderRecord); `literalStart`: with the range on the pattern's literal start.
QString orderSearchSql(const db::SqlDialect& dialect, bool literalStart);

} // namespace tolvinpt
