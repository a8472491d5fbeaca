#include "tests/support/temp_database.h"

#include "platform/sql/sql_dialect.h"
#include "store/schema.h"
#include "tests/support/pg_server.h"

#include <QCoreApplication>
#include <QSqlError>
#include <QSqlQuery>

#include <atomic>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace tolvinpt::test {

namespace {

int nextNumber()
{
    static std::atomic<int> counter{0};
    return ++counter;
}

QString uniqueConnectionName()
{
    return u"tolvinpt-test-"_s + QString::number(nextNumber());
}

// Server addresses are libpq connection strings behind this mark; anything else is a file.
const QString ServerMark = u"postgresql:"_s;

} // namespace

Engine defaultEngine()
{
    return qEnvironmentVariable("TOLVINPT_TEST_ENGINE") == u"postgresql"_s ? Engine::PostgreSQL : Engine::SQLite;
}

TempDatabase::TempDatabase(Schema schema, Backend backend)
    : m_name(uniqueConnectionName()), m_backend(backend)
{
    if (!m_dir.isValid())
        throw std::runtime_error("cannot create a temporary directory");
    if (backend.engine == Engine::PostgreSQL) {
        m_server = PgServer::shared();
        m_serverDatabase = u"tolvinpt_test_%1_%2"_s.arg(QCoreApplication::applicationPid()).arg(nextNumber());
        m_server.admin(u"CREATE DATABASE "_s + m_serverDatabase);
    }
    addConnection(m_name, address());
    reopen();
    if (schema == Schema::Delivery)
        createDeliveryTables(*m_database);
}

TempDatabase::~TempDatabase()
{
    close();
    QSqlDatabase::removeDatabase(m_name);
    if (!m_serverDatabase.isEmpty()) {
        try {
            m_server.admin(u"DROP DATABASE "_s + m_serverDatabase + u" WITH (FORCE)"_s);
        } catch (const std::exception&) {
            // The server goes with the test run anyway.
        }
    }
}

QSqlDatabase TempDatabase::connection() const
{
    return QSqlDatabase::database(m_name, false);
}

QString TempDatabase::filePath() const
{
    return m_serverDatabase.isEmpty() ? m_dir.filePath(u"delivery.sqlite"_s) : QString();
}

QString TempDatabase::address() const
{
    if (m_serverDatabase.isEmpty())
        return filePath();
    return ServerMark + m_server.connectionString(m_serverDatabase);
}

QSqlDatabase TempDatabase::addConnection(const QString& name, const QString& address)
{
    if (!address.startsWith(ServerMark)) {
        QSqlDatabase connection = QSqlDatabase::addDatabase(u"QSQLITE"_s, name);
        connection.setDatabaseName(address);
        return connection;
    }
    QString database;
    const PgServer server = PgServer::fromSettings(address.mid(ServerMark.size()).split(u' '), &database);
    return server.addConnection(name, database);
}

QString TempDatabase::readOnlyUser()
{
    const QString role = u"tolvinpt_reader"_s;
    // Roles belong to the whole server, and tests in parallel may create it at the same moment.
    m_server.admin(u"DO $$BEGIN CREATE ROLE "_s + role +
                   u" LOGIN; EXCEPTION WHEN duplicate_object OR unique_violation THEN NULL; END$$"_s);
    db().execute(u"GRANT SELECT ON T_Delivery, T_DeliveryQTY TO "_s + role);
    return role;
}

QString TempDatabase::EngineError::shown(bool blank) const
{
    return description + (blank ? u" ("_s : u"("_s) + QString::number(number) + u')';
}

void TempDatabase::refuseWrites(const QString& event, const QString& table, const QString& text,
                                const QString& condition)
{
    if (engine() == Engine::SQLite) {
        db().execute(
            u"CREATE TRIGGER refuse_%1 BEFORE %2 ON %1 %3 BEGIN SELECT RAISE(ABORT, '%4'); END"_s.arg(
                table, event, condition.isEmpty() ? QString() : u"WHEN "_s + condition, text));
        return;
    }
    db().execute(u"CREATE OR REPLACE FUNCTION refuse() RETURNS trigger LANGUAGE plpgsql "
                 u"AS $$BEGIN RAISE EXCEPTION '%', TG_ARGV[0]; END$$"_s);
    db().execute(
        u"CREATE TRIGGER refuse_%1 BEFORE %2 ON %1 FOR EACH ROW %3 EXECUTE FUNCTION refuse('%4')"_s.arg(
            table, event, condition.isEmpty() ? QString() : u"WHEN ("_s + condition + u')', text));
}

TempDatabase::EngineError TempDatabase::refusedError(const QString& text) const
{
    return {text, engine() == Engine::SQLite ? 1811 : 42090401}; // SQLITE_CONSTRAINT_TRIGGER, P0001
}

void TempDatabase::allowWrites(const QString& table)
{
    db().execute(u"DROP TRIGGER IF EXISTS refuse_%1"_s.arg(table) + sql({}, u" ON "_s + table));
}

TempDatabase::EngineError TempDatabase::lockedError() const
{
    if (engine() == Engine::SQLite)
        return {u"database is locked"_s, 5};
    return {u"canceling statement due to lock timeout"_s, 8763763}; // 55P03
}

void TempDatabase::close()
{
    m_database.reset();
    QSqlDatabase connection = this->connection();
    connection.close();
}

void TempDatabase::reopen()
{
    QSqlDatabase connection = this->connection();
    if (!connection.open())
        throw std::runtime_error(connection.lastError().text().toStdString());
    m_database = std::make_unique<db::Database>(connection, m_backend.path);
}

SecondConnection::SecondConnection(const TempDatabase& database, std::initializer_list<QString> statements)
    : SecondConnection(database.address())
{
    for (const QString& sql : statements)
        exec(sql);
}

SecondConnection::SecondConnection(const QString& address, const QString& options, const QString& user,
                                   db::Database::StatementPath path)
    : m_name(uniqueConnectionName())
{
    QSqlDatabase connection = TempDatabase::addConnection(m_name, address);
    connection.setConnectOptions(options);
    if (!user.isEmpty())
        connection.setUserName(user);
    if (!connection.open())
        throw std::runtime_error(connection.lastError().text().toStdString());
    m_database = std::make_unique<db::Database>(connection, path);
}

SecondConnection::~SecondConnection()
{
    m_database.reset();
    // A server lets go of a closed connection's locks only some time later.
    if (m_inTransaction)
        QSqlQuery(QSqlDatabase::database(m_name, false)).exec(u"ROLLBACK"_s);
    QSqlDatabase::database(m_name, false).close();
    QSqlDatabase::removeDatabase(m_name);
}

void SecondConnection::exec(const QString& sql)
{
    const QSqlDatabase connection = QSqlDatabase::database(m_name, false);
    QStringList statements{sql};
    if ((sql == u"BEGIN EXCLUSIVE"_s || sql == u"BEGIN IMMEDIATE"_s) &&
        connection.driverName() != u"QSQLITE"_s) {
        statements = db::SqlDialect::of(connection)->beginTransaction(db::TransactionKind::Write);
        if (sql == u"BEGIN EXCLUSIVE"_s)
            statements << u"LOCK TABLE T_Delivery, T_DeliveryQTY IN ACCESS EXCLUSIVE MODE"_s;
    }
    m_inTransaction =
        sql.startsWith(u"BEGIN"_s) || (m_inTransaction && sql != u"COMMIT"_s && sql != u"ROLLBACK"_s);
    for (const QString& statement : statements) {
        QSqlQuery query(connection);
        EXPECT_TRUE(query.exec(statement))
            << statement.toStdString() << ": " << query.lastError().text().toStdString();
    }
}

std::string backendName(const testing::TestParamInfo<Backend>& param)
{
    const bool native = param.param.path == db::Database::StatementPath::Native;
    return std::string(param.param.engine == Engine::SQLite ? "SQLite" : "PostgreSQL") + (native ? "" : "Portable");
}

void PrintTo(const Backend& backend, std::ostream* out)
{
    *out << backendName(testing::TestParamInfo<Backend>(backend, 0));
}

} // namespace tolvinpt::test
