#pragma once

// How statements reach an engine, behind Database and Statement. Internal to the database layer.

#include "platform/sql/database.h"

#include <memory>
#include <optional>
#include <utility>
#include <unordered_map>
#include <vector>

namespace tolvinpt::db {

class SqlStatement
{
public:
    virtual ~SqlStatement() = default;
    virtual void bind(int index, const QVariant& value) = 0;
    virtual void exec() = 0;
    virtual bool next() = 0;
    virtual QVariant value(int column) const = 0;
    virtual int columnCount() const = 0;
    virtual const QStringList& columnNames() const = 0;
    virtual qint64 lastInsertId() const = 0;
    virtual qint64 rowsAffected() const = 0;
    // Ends the run and forgets the bindings, so the statement holds no lock and can be reused.
    virtual void reset() = 0;
};

// Keeps one prepared statement per SQL text; a text already in use (a nested run) gets a fresh one.
class SqlBackend
{
public:
    virtual ~SqlBackend();
    SqlStatement* acquire(const QString& sql);
    void release(SqlStatement* statement);
    // A statement is acquired and not yet released.
    bool inUse() const;

protected:
    virtual std::unique_ptr<SqlStatement> create(const QString& sql) = 0;
    // Drops every cached statement; backends call it in their destructors.
    void clear();

private:
    struct Cached
    {
        std::unique_ptr<SqlStatement> statement;
        bool inUse = false;
    };
    std::unordered_map<QString, Cached> m_cache;
    std::vector<std::unique_ptr<SqlStatement>> m_fresh;
};

// Statements through QSqlQuery: any Qt driver.
std::unique_ptr<SqlBackend> makeQtSqlBackend(const QSqlDatabase& connection);
// Statements on the sqlite3 handle of a QSQLITE connection.
std::unique_ptr<SqlBackend> makeSqliteBackend(const QSqlDatabase& connection);
// Statements on the libpq handle of a QPSQL connection (server-side prepared statements).
std::unique_ptr<SqlBackend> makePostgresqlBackend(const QSqlDatabase& connection);

// The dialect of each engine.
const SqlDialect& sqliteDialect();
const SqlDialect& postgresqlDialect();

// The text range [first, second) that holds every text starting with `prefix` when both are compared
// by code point with A-Z folded to a-z; nullopt for an empty prefix.
std::optional<std::pair<QString, QString>> foldedPrefixBounds(QStringView prefix);

} // namespace tolvinpt::db
