#pragma once

// The PostgreSQL engine under a QPSQL connection. Internal to the database layer.

#include <QSqlDatabase>

struct pg_conn;

namespace tolvinpt::db {

class DatabaseError;

// The libpq handle of an open QPSQL connection. Throws DatabaseError for any other connection.
pg_conn* postgresqlHandle(const QSqlDatabase& connection);

// True once the server end of an opened connection is gone (a restart, a dropped network link); a
// connection its owner closed is not lost.
bool postgresqlConnectionLost(const QSqlDatabase& connection);

// The '?' placeholders of `sql` as $1, $2, ... (quoted text, quoted names and comments left alone).
QString numberedPlaceholders(const QString& sql);

} // namespace tolvinpt::db
