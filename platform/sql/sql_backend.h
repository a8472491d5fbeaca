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
    // Another user of the connection opened a new session under the statement: the old handle is gone,
    // so the statement must not touch it again, not even to free itself on the engine.
    virtual void abandon() {}
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
    // The connection now has another session than the one the statements were prepared on.
    virtual bool sessionReplaced() const { return false; }

protected:
    virtual std::unique_ptr<SqlStatement> create(const QString& sql) = 0;
    // Drops every cached statement; backends call it in their destructors.
    void clear();
    // Tells every statement that its session is gone (see SqlStatement::abandon).
    void abandon();

private:
    struct Cached
    {
        std::unique_ptr<SqlStatement> statement;
        bool inUse = false;
    };
    std::unordered_map<QString, Cached> m_cache;
    std::vector<std::unique_ptr<SqlStatement>> m_fresh;
};

// The engine's own handle of a Qt connection (sqlite3*, PGconn*), or nullptr.
const void* nativeHandle(const QSqlDatabase& connection);

// Statements on an engine's own handle, taken from the Qt connection that owns it.
template <typename Handle, typename EngineStatement>
class HandleBackend final : public SqlBackend
{
public:
    HandleBackend(const QSqlDatabase& connection, Handle* handle) : m_connection(connection), m_handle(handle) {}
    ~HandleBackend() override
    {
        if (sessionReplaced())
            abandon();
        clear();
    }
    bool sessionReplaced() const override { return nativeHandle(m_connection) != m_handle; }

protected:
    std::unique_ptr<SqlStatement> create(const QString& sql) override
    {
        return std::make_unique<EngineStatement>(m_handle, sql);
    }

private:
    QSqlDatabase m_connection; // keeps the handle's owner alive as long as the statements
    Handle* m_handle;
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
