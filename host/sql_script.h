#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

#include <utility>
#include <vector>

namespace tolvinpt::db {
class SqlDialect;
} // namespace tolvinpt::db

namespace tolvinpt::host {

// One column and its value for insertRow; a null QVariant writes Null.
using ColumnValues = std::vector<std::pair<QString, QVariant>>;

// A SQLite connection of its own under a unique name, for one look at a file (or at ":memory:"); closed
// and removed when it goes out of scope.
class ScopedConnection
{
public:
    ScopedConnection(const QString& path, const QString& options = {});
    ~ScopedConnection();
    ScopedConnection(const ScopedConnection&) = delete;
    ScopedConnection& operator=(const ScopedConnection&) = delete;
    QSqlDatabase db() const { return QSqlDatabase::database(m_name, false); }

private:
    QString m_name;
};

// Runs every statement of a SQL script (as found in the .sql resources) on `db`, in turn. Throws
// tolvinpt::Error with the engine's message and error code on the first failing statement.
void runScript(const QSqlDatabase& db, const QString& script);
// The SQL dialect of the engine of `db`; throws tolvinpt::Error for an engine without one.
const db::SqlDialect& dialectOf(const QSqlDatabase& db);
// The host's script `name` for the engine of `db` (":/tolvinpt-host/<engine folder>/<name>").
QString hostScript(const QSqlDatabase& db, const QString& name);
// Reads a text resource such as ":/tolvinpt-host/schema.sql"; throws tolvinpt::Error when it is missing.
QString readResource(const QString& path);
// INSERT INTO table (columns) VALUES (bound values); returns the value the engine gave `keyColumn`, if
// one is named. Throws tolvinpt::Error on failure.
qint64 insertRow(const QSqlDatabase& db, const QString& table, const ColumnValues& values,
                 const QString& keyColumn = {});
// Runs one statement with bound values and returns the executed query, forward only; throws
// tolvinpt::Error on failure.
QSqlQuery execQuery(const QSqlDatabase& db, const QString& sql, const QVariantList& values = {});

} // namespace tolvinpt::host
