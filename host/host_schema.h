#pragma once

#include <QSqlDatabase>
#include <QStringList>

namespace tolvinpt::host {

// Marks a SQLite file as this host's (PRAGMA application_id): "TLVH".
inline constexpr int kApplicationId = 0x544C5648;
// Layout version of the host's database (PRAGMA user_version); raised when the layout changes.
inline constexpr int kSchemaVersion = 1;

// Every table that a host database holds: the delivery tables and the host's own.
QStringList requiredTables();

// "T_Delivery.F00018" for each column that our own DDL creates and `db` lacks, in table order.
QStringList missingColumns(const QSqlDatabase& db);

// Creates the delivery tables (the component's DDL), the host's tables and the marks on an empty
// database. Runs inside the caller's transaction; throws tolvinpt::Error on failure.
void createHostSchema(const QSqlDatabase& db);

} // namespace tolvinpt::host
