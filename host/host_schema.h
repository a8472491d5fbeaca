#pragma once

#include <QSqlDatabase>
#include <QStringList>

#include <functional>

namespace tolvinpt::host {

// Marks a database as this host's: "TLVH" (a file keeps it as PRAGMA application_id).
inline constexpr int kApplicationId = 0x544C5648;
// Layout version of the host's database (a file keeps it as PRAGMA user_version); raised when the layout
// changes. 2: the indexes of the delivery list. 3: those indexes on expressions that every engine reads.
inline constexpr int kSchemaVersion = 3;

// The marks of a database: this host's application id and the layout version, 0 where there are none.
struct HostMarks
{
    int applicationId = 0;
    int version = 0;
};
// Throws tolvinpt::Error.
HostMarks readMarks(const QSqlDatabase& db);

// Every table that a host database holds: the delivery tables and the host's own.
QStringList requiredTables();

// "T_Delivery.F00018" for each column that our own DDL creates and `db` lacks, in table order.
QStringList missingColumns(const QSqlDatabase& db);

// Creates the delivery tables (the component's DDL), the host's tables, the list's indexes and the marks
// on an empty database. Runs inside the caller's transaction; throws tolvinpt::Error on failure.
void createHostSchema(const QSqlDatabase& db);
// The same on a database that holds the delivery tables already (records of another program).
void addHostTables(const QSqlDatabase& db);

// How far a long schema change is: `done` of `total` steps, reported before each step and after the last.
using SchemaProgress = std::function<void(int done, int total)>;

// True for a host database of an earlier layout version; upgradeHostSchema brings it up to date inside
// the caller's transaction (on a million records that takes about a minute). Both throw tolvinpt::Error.
bool needsUpgrade(const QSqlDatabase& db);
void upgradeHostSchema(const QSqlDatabase& db, const SchemaProgress& progress = {});

} // namespace tolvinpt::host
