#pragma once

#include "store/delivery_record.h"

#include <QList>
#include <QVariant>

namespace tolvinpt {

namespace db {
class Database;
class SqlDialect;
} // namespace db

// Writes of whole rows, used to create records and by tests and benchmarks. Each throws DatabaseError.
// Threading: UI thread only, like the connection.

// Inserts a row with only its key assigned (every other column at its default, InDustBox False) and
// returns the IDData that the database numbered it with.
qint64 insertBlankDeliveryRecord(db::Database& database);

// Inserts a row with the columns that `record` has (IDData too, when it has a non-null one) and returns
// its IDData. Values may be as read or ours (see storedValue).
qint64 insertDeliveryRecord(db::Database& database, const DeliveryRecord& record);

// The insert statement for the columns that `record` has, in catalogue order, one '?' each.
QString deliveryInsertSql(const DeliveryRecord& record);

// The update of the columns of `detail` that the detail save writes, one '?' each in catalogue order and
// one for IDData last, with the columns it clears set to Null.
QString detailUpdateSql(const DeliveryRecord& detail);
// The package mode's update ('?': QuantityType, Quantity, IDData), which clears the label print date.
QString packageModeSql();
// The package rows of a record ('?': IDData): their delete, and the insert of one ('?': IDData, Sequence,
// Quantity).
QString packageRowsDeleteSql();
QString packageRowInsertSql();

// Deletes a record and its package rows.
void deleteDeliveryRecord(db::Database& database, qint64 id);

// Appends package rows with Sequence 1, 2, ... holding `quantities` as given (a Currency's decimal text, a
// number, or null for Null).
void insertPackageRows(db::Database& database, qint64 id, const QList<QVariant>& quantities);

// A value of ours for `column` in the engine's stored form: dates, date/times and Booleans go through the
// dialect, decimal text stays exact (and becomes a double for a Double column), a null QString is empty
// text. Values already in stored form pass unchanged.
QVariant storedValue(const db::SqlDialect& dialect, DeliveryColumn column, const QVariant& value);

} // namespace tolvinpt
