#include "tests/support/temp_database.h"

#include "store/schema.h"

#include <QSqlError>
#include <QSqlQuery>

#include <atomic>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace tolvinpt::test {

namespace {

QString uniqueConnectionName()
{
    static std::atomic<int> counter{0};
    return u"tolvinpt-test-"_s + QString::number(++counter);
}

} // namespace

TempDatabase::TempDatabase(Schema schema, db::Database::StatementPath path)
    : m_name(uniqueConnectionName()), m_path(path)
{
    if (!m_dir.isValid())
        throw std::runtime_error("cannot create a temporary directory");
    QSqlDatabase connection = QSqlDatabase::addDatabase(u"QSQLITE"_s, m_name);
    connection.setDatabaseName(filePath());
    reopen();
    if (schema == Schema::Delivery)
        createDeliveryTables(*m_database);
}

TempDatabase::~TempDatabase()
{
    close();
    QSqlDatabase::removeDatabase(m_name);
}

QSqlDatabase TempDatabase::connection() const
{
    return QSqlDatabase::database(m_name, false);
}

QString TempDatabase::filePath() const
{
    return m_dir.filePath(u"delivery.sqlite"_s);
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
    m_database = std::make_unique<db::Database>(connection, m_path);
}

SecondConnection::SecondConnection(const TempDatabase& database, std::initializer_list<QString> statements)
    : m_name(uniqueConnectionName())
{
    QSqlDatabase connection = QSqlDatabase::addDatabase(u"QSQLITE"_s, m_name);
    connection.setDatabaseName(database.filePath());
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
    QSqlQuery query(QSqlDatabase::database(m_name, false));
    EXPECT_TRUE(query.exec(sql)) << sql.toStdString() << ": " << query.lastError().text().toStdString();
}

std::string statementPathName(const testing::TestParamInfo<db::Database::StatementPath>& param)
{
    return param.param == db::Database::StatementPath::Native ? "Native" : "Portable";
}

} // namespace tolvinpt::test
