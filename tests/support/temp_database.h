#pragma once

#include "platform/sql/database.h"
#include "tests/support/pg_server.h"

#include <QSqlDatabase>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>

namespace tolvinpt::test {

// Which engine and statement path a test database runs on.
enum class Engine { SQLite, PostgreSQL };
// The default engine: SQLite, or the server when TOLVINPT_TEST_ENGINE is "postgresql" (see tolvinpt_test's
// BOTH_ENGINES).
Engine defaultEngine();
struct Backend
{
    Engine engine = defaultEngine();
    db::Database::StatementPath path = db::Database::StatementPath::Native;
};

// A fresh database of its own: an SQLite file in a temporary directory, or a new database on the test
// run's PostgreSQL server (see pg_server.h). Open under a connection name of its own, with the
// delivery tables created from the shipped DDL unless asked for an empty one. The connection is closed and
// removed, and the file or server database dropped, when the object goes.
class TempDatabase
{
public:
    enum class Schema { Delivery, Empty };

    explicit TempDatabase(Schema schema = Schema::Delivery, Backend backend = {});
    TempDatabase(const TempDatabase&) = delete;
    TempDatabase& operator=(const TempDatabase&) = delete;
    ~TempDatabase();

    // The store's access; created with the connection.
    db::Database& db() { return *m_database; }
    // The Qt connection, e.g. for a host object's Database().
    QSqlDatabase connection() const;
    const QString& connectionName() const { return m_name; }
    Engine engine() const { return m_backend.engine; }
    // The SQLite file (empty on PostgreSQL).
    QString filePath() const;
    // Where the database is, for another process: see addConnection().
    QString address() const;
    // A new connection (not opened) named `name` to the database at `address`.
    static QSqlDatabase addConnection(const QString& name, const QString& address);
    // `sqlite` on SQLite, `postgresql` on PostgreSQL: for a test's own tables and engine-specific SQL.
    QString sql(const QString& sqlite, const QString& postgresql) const
    {
        return engine() == Engine::SQLite ? sqlite : postgresql;
    }

    // A role that may only read this database's tables (PostgreSQL only): to log in as with a Peer.
    QString readOnlyUser();

    // An error as the engine reports it: its own text and number.
    struct EngineError
    {
        QString description;
        long number;
        // "description (number)", or without the blank as some commands show it.
        QString shown(bool blank = true) const;
    };
    // Until allowWrites(table): `event` ("INSERT", "UPDATE", "UPDATE OF F00036") on `table` fails with
    // `text` where `condition` (on NEW.<column>) holds: the writer gets refusedError(text).
    void refuseWrites(const QString& event, const QString& table, const QString& text,
                      const QString& condition = {});
    void allowWrites(const QString& table);
    EngineError refusedError(const QString& text) const;
    // The error of a connection that gave up waiting for a lock (see SecondConnection).
    EngineError lockedError() const;

    // Drops the store's access and closes the connection (to reopen it with reopen()).
    void close();
    // Opens the connection again and gives it a new store access.
    void reopen();

private:
    QTemporaryDir m_dir;
    QString m_name;
    Backend m_backend;
    PgServer m_server;
    QString m_serverDatabase;
    std::unique_ptr<db::Database> m_database;
};

// Another operator's connection to the same database, for changes and locks made behind the component's
// back. Each statement must succeed. "BEGIN IMMEDIATE" takes the write lock as the engine's Write
// transaction takes it; "BEGIN EXCLUSIVE" besides keeps every other connection from reading the tables.
class SecondConnection
{
public:
    // Runs `statements` in turn once the connection is open (e.g. "BEGIN EXCLUSIVE" to hold a lock
    // until the object goes).
    explicit SecondConnection(const TempDatabase& database, std::initializer_list<QString> statements = {});
    // To the database at `address` (also from another process) with the driver's connect `options`, logged
    // in as `user` when given; db() takes `path`.
    explicit SecondConnection(const QString& address, const QString& options = {}, const QString& user = {},
                              db::Database::StatementPath path = db::Database::StatementPath::Native);
    SecondConnection(const SecondConnection&) = delete;
    SecondConnection& operator=(const SecondConnection&) = delete;
    ~SecondConnection();

    void exec(const QString& sql);
    // The store's access over this connection, as another operator's program holds one.
    db::Database& db() { return *m_database; }

private:
    QString m_name;
    std::unique_ptr<db::Database> m_database;
    bool m_inTransaction = false;
};

// For tests that run on every engine and statement path:
//   INSTANTIATE_TEST_SUITE_P(Db, Suite, test::allBackends(), test::backendName);
inline auto allBackends()
{
    using Path = db::Database::StatementPath;
    return testing::Values(Backend{Engine::SQLite, Path::Native}, Backend{Engine::SQLite, Path::Portable},
                           Backend{Engine::PostgreSQL, Path::Native}, Backend{Engine::PostgreSQL, Path::Portable});
}
std::string backendName(const testing::TestParamInfo<Backend>& param);
void PrintTo(const Backend& backend, std::ostream* out);
inline auto bothEngines()
{
    return testing::Values(Backend{Engine::SQLite}, Backend{Engine::PostgreSQL});
}

} // namespace tolvinpt::test
