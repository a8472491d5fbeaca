#pragma once

// The SQLite engine under a QSQLITE connection. Internal to the database layer.

#include <QSqlDatabase>

struct sqlite3;

namespace tolvinpt::db {

// The sqlite3 handle of an open QSQLITE connection. Throws DatabaseError for any other connection.
sqlite3* sqliteHandle(const QSqlDatabase& connection);

// Name of the SQL function tolvinpt_like(pattern, text): 1 for a match, 0 for none, Null when either
// argument is Null; an invalid pattern fails the statement.
inline constexpr char LikeFunctionName[] = "tolvinpt_like";

// Registers the Like function on the connection unless it already has it. The registration is
// remembered per handle and forgotten when SQLite drops the function, i.e. when the connection closes.
void ensureLikeFunction(sqlite3* handle);

} // namespace tolvinpt::db
