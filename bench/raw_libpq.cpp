#include "bench/raw_libpq.h"

#include "platform/sql/postgresql_backend.h"

#include <QDate>
#include <QDateTime>
#include <QLocale>
#include <QString>
#include <QStringList>

#include <libpq-fe.h>

#include <algorithm>
#include <climits>
#include <memory>
#include <stdexcept>

namespace tolvinpt::bench {

namespace {

using Result = std::unique_ptr<PGresult, decltype(&PQclear)>;

std::string name(int statement)
{
    return "raw_" + std::to_string(statement);
}

PgValue number(std::int64_t value)
{
    return std::to_string(value);
}

} // namespace

PgValue pgValue(const QVariant& value)
{
    if (value.isNull())
        return std::nullopt;
    switch (value.typeId()) {
    case QMetaType::Bool:
        return std::string(value.toBool() ? "true" : "false");
    case QMetaType::QDate:
        return value.toDate().toString(QStringLiteral("yyyy-MM-dd")).toStdString();
    case QMetaType::QDateTime:
        return value.toDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toStdString();
    case QMetaType::Double:
    case QMetaType::Float:
        return QByteArray::number(value.toDouble(), 'g', QLocale::FloatingPointShortest).toStdString();
    default:
        return value.toString().toStdString();
    }
}

std::vector<std::string> statementTexts(const QStringList& statements)
{
    std::vector<std::string> texts;
    for (const QString& statement : statements)
        texts.push_back(statement.toStdString());
    return texts;
}

RawPgConnection::RawPgConnection(const std::string& uri) : m_connection(PQconnectdb(uri.c_str()))
{
    if (PQstatus(m_connection) != CONNECTION_OK) {
        const std::string message = PQerrorMessage(m_connection);
        PQfinish(m_connection);
        throw std::runtime_error(message);
    }
}

RawPgConnection::~RawPgConnection()
{
    PQfinish(m_connection);
}

int RawPgConnection::prepare(const std::string& sql)
{
    const int statement = ++m_statements;
    const QString numbered = db::numberedPlaceholders(QString::fromStdString(sql));
    const Result result(
        PQprepare(m_connection, name(statement).c_str(), numbered.toUtf8().constData(), 0, nullptr), PQclear);
    if (PQresultStatus(result.get()) != PGRES_COMMAND_OK)
        throw std::runtime_error(PQerrorMessage(m_connection));
    return statement;
}

std::vector<int> RawPgConnection::prepareAll(const std::vector<std::string>& sql)
{
    std::vector<int> statements;
    for (const std::string& text : sql)
        statements.push_back(prepare(text));
    return statements;
}

std::size_t RawPgConnection::run(int statement, const std::vector<PgValue>& values,
                                 std::vector<PgValue>* rows, int copied)
{
    std::vector<const char*> texts;
    texts.reserve(values.size());
    for (const PgValue& value : values)
        texts.push_back(value ? value->c_str() : nullptr);
    const Result result(PQexecPrepared(m_connection, name(statement).c_str(), int(texts.size()), texts.data(),
                                       nullptr, nullptr, 0),
                        PQclear);
    const ExecStatusType status = PQresultStatus(result.get());
    if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK)
        throw std::runtime_error(PQerrorMessage(m_connection));
    const int count = PQntuples(result.get());
    if (rows) {
        rows->clear();
        const int columns = PQnfields(result.get());
        for (int row = 0; row < std::min(count, copied); ++row)
            for (int column = 0; column < columns; ++column)
                rows->push_back(
                    PQgetisnull(result.get(), row, column)
                        ? PgValue()
                        : PgValue(std::string(PQgetvalue(result.get(), row, column),
                                              std::size_t(PQgetlength(result.get(), row, column)))));
    }
    return std::size_t(count);
}

std::optional<std::int64_t> RawPgConnection::first(int statement, const std::vector<PgValue>& values)
{
    std::vector<PgValue> rows;
    if (run(statement, values, &rows) == 0 || !rows.front())
        return std::nullopt;
    return std::stoll(*rows.front());
}

void RawPgConnection::runAll(const std::vector<int>& statements)
{
    for (int statement : statements)
        run(statement, {});
}

RawPgStore::RawPgStore(const std::string& uri, const RawStatements& sql,
                       const std::vector<std::string>& beginRead, const std::vector<std::string>& beginWrite)
    : m_connection(uri)
{
    m_read = m_connection.prepare(sql.readRecord);
    m_find = m_connection.prepare(sql.findByKey);
    m_insert = m_connection.prepare(sql.insertRecord);
    m_deletePackages = m_connection.prepare("DELETE FROM T_DeliveryQTY WHERE IDData = ?");
    m_delete = m_connection.prepare("DELETE FROM T_Delivery WHERE IDData = ?");
    m_commit = m_connection.prepare("COMMIT");
    m_beginRead = m_connection.prepareAll(beginRead);
    m_beginWrite = m_connection.prepareAll(beginWrite);
}

std::size_t RawPgStore::readRecord(std::int64_t id)
{
    m_connection.run(m_read, {number(id)}, &m_row);
    return m_row.size();
}

std::optional<std::int64_t> RawPgStore::findByOrderKey(std::int64_t customer, const std::string& order,
                                                       const std::string& key)
{
    return m_connection.first(m_find, {number(customer), order, key});
}

double RawPgStore::inTransaction(const std::function<double()>& calls)
{
    m_connection.runAll(m_beginRead);
    const double result = calls();
    m_connection.run(m_commit, {});
    return result;
}

void RawPgStore::insertAndDelete(const std::vector<PgValue>& values)
{
    m_connection.runAll(m_beginWrite);
    const PgValue id = number(m_connection.first(m_insert, values).value_or(0));
    m_connection.run(m_deletePackages, {id});
    m_connection.run(m_delete, {id});
    m_connection.run(m_commit, {});
}

RawPgSave::RawPgSave(const std::string& uri, const RawSaveStatements& sql,
                     const std::vector<std::string>& beginWrite)
    : m_connection(uri)
{
    m_find = m_connection.prepare(sql.findByKey);
    m_read = m_connection.prepare(sql.readRecord);
    m_readPackages = m_connection.prepare(sql.readPackages);
    m_update = m_connection.prepare(sql.updateDetail);
    m_updatePackages = m_connection.prepare(sql.updatePackages);
    m_deletePackages = m_connection.prepare(sql.deletePackages);
    m_insertPackage = m_connection.prepare(sql.insertPackage);
    m_search = m_connection.prepare(sql.searchWithRange);
    m_commit = m_connection.prepare("COMMIT");
    m_beginWrite = m_connection.prepareAll(beginWrite);
}

std::optional<std::int64_t> RawPgSave::findByOrderKey(std::int64_t customer, const std::string& order,
                                                      const std::string& key)
{
    return m_connection.first(m_find, {number(customer), order, key});
}

std::size_t RawPgSave::save(std::int64_t id, std::int64_t customer, const std::string& order,
                            const std::string& key, const std::vector<PgValue>& detail, std::int64_t mode,
                            const std::string& quantity, const std::vector<std::string>& packages)
{
    m_connection.runAll(m_beginWrite);
    if (findByOrderKey(customer, order, key) != id)
        throw std::runtime_error("the saved record's key is not its own");
    const PgValue idText = number(id);
    m_connection.run(m_read, {idText}, &m_row);
    m_connection.run(m_readPackages, {idText}, &m_row);
    std::vector<PgValue> values = detail;
    values.push_back(idText);
    m_connection.run(m_update, values);
    m_connection.run(m_updatePackages, {number(mode), quantity, idText});
    m_connection.run(m_deletePackages, {idText});
    for (std::size_t i = 0; i < packages.size(); ++i)
        m_connection.run(m_insertPackage, {idText, number(std::int64_t(i) + 1), packages[i]});
    m_connection.run(m_read, {idText}, &m_row);
    const std::size_t rows = m_connection.run(m_readPackages, {idText}, &m_row);
    m_connection.run(m_commit, {});
    return rows;
}

std::size_t RawPgSave::search(std::int64_t customer, const std::string& from, const std::string& to,
                              const std::string& pattern)
{
    m_connection.run(m_search, {number(customer), from, to, pattern}, &m_row, 1);
    return m_row.size();
}

} // namespace tolvinpt::bench
