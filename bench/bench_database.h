#pragma once

// The database a benchmark measures: a SQLite FILE or a database on a PostgreSQL server (a postgresql://
// URI), opened as the host opens it.

#include <QSqlDatabase>
#include <QString>

namespace tolvinpt::bench {

bool isServer(const QString& target);
// The connection `name` to `target`, open. Throws std::runtime_error.
QSqlDatabase openDatabase(const QString& target, const QString& name);

} // namespace tolvinpt::bench
