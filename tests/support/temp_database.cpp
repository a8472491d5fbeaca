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

TempDatabase::TempDatabase(Schema schema, Backend backend) : m_name(uniqueConnectionName()), m_backend(backend)
{
    if (!m_dir.isValid())
        throw std::runtime_error("cannot create a temporary directory");
    if (backend.engine == Engine::PostgreSQL) {
        m_serverDatabase = u"tolvinpt_test_%1_%2"_s.arg(QCoreApplication::applicationPid()).arg(nextNumber());
        PgServer::shared().admin(u"CREATE DATABASE "_s + m_serverDatabase);
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
            PgServer::shared().admin(u"DROP DATABASE "_s + m_serverDatabase + u" WITH (FORCE)"_s);
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
    return ServerMark + PgServer::shared().connectionString(m_serverDatabase);
}

QSqlDatabase TempDatabase::addConnection(const QString& name, const QString& address)
{
    if (!address.startsWith(ServerMark)) {
        QSqlDatabase connection = QSqlDatabase::addDatabase(u"QSQLITE"_s, name);
        connection.setDatabaseName(address);
        return connection;
    }
    PgServer server;
    QString database;
    for (const QString& part : address.mid(ServerMark.size()).split(u' ')) {
        const QString value = part.section(u'=', 1);
        if (part.startsWith(u"host="_s))
            server.host = value;
        else if (part.startsWith(u"port="_s))
            server.port = value.toInt();
        else if (part.startsWith(u"user="_s))
            server.user = value;
        else if (part.startsWith(u"dbname="_s))
            database = value;
    }
    return server.addConnection(name, database);
}

QString TempDatabase::readOnlyUser()
{
    const QString role = u"tolvinpt_reader"_s;
    // Roles belong to the whole server, and tests in parallel may create it at the same moment.
    PgServer::shared().admin(u"DO $$BEGIN CREATE ROLE "_s + role +
                             u" LOGIN; EXCEPTION WHEN duplicate_object OR unique_violation THEN NULL; END$$"_s);
    db().execute(u"GRANT SELECT ON T_Delivery, T_DeliveryQTY TO "_s + role);
    return role;
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
    : m_name(uniqueConnectionName())
{
    QSqlDatabase connection = TempDatabase::addConnection(m_name, database.address());
    EXPECT_TRUE(connection.open());
    for (const QString& sql : statements)
        exec(sql);
}

SecondConnection::~SecondConnection()
{
    QSqlDatabase::database(m_name, false).close();
    QSqlDatabase::removeDatabase(m_name);
}

void SecondConnection::exec(const QString& sql)
{
    const QSqlDatabase connection = QSqlDatabase::database(m_name, false);
    QStringList statements{sql};
    if ((sql == u"BEGIN EXCLUSIVE"_s || sql == u"BEGIN IMMEDIATE"_s) && connection.driverName() != u"QSQLITE"_s)
        statements = db::SqlDialect::of(connection)->beginTransaction(db::TransactionKind::Write);
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

std::string statementPathName(const testing::TestParamInfo<db::Database::StatementPath>& param)
{
    return param.param == db::Database::StatementPath::Native ? "Native" : "Portable";
}

} // namespace tolvinpt::test
