#include "bench/raw_sqlite.h"

#include "platform/sqlite_backend.h"

#include <QSqlDatabase>

#include <sqlite3.h>

#include <stdexcept>

namespace tolvinpt::bench {

namespace {

void check(sqlite3* db, int rc)
{
    if (rc != SQLITE_OK && rc != SQLITE_ROW && rc != SQLITE_DONE)
        throw std::runtime_error(sqlite3_errmsg(db));
}

} // namespace

RawValue rawValue(const QVariant& value)
{
    if (value.isNull())
        return std::monostate();
    switch (value.typeId()) {
    case QMetaType::Double:
        return value.toDouble();
    case QMetaType::QString:
        return value.toString().toStdString();
    default:
        return static_cast<std::int64_t>(value.toLongLong());
    }
}

void bindValues(sqlite3_stmt* statement, const std::vector<RawValue>& values, int first)
{
    for (std::size_t i = 0; i < values.size(); ++i) {
        const int position = first + static_cast<int>(i);
        const RawValue& value = values[i];
        if (const auto* integer = std::get_if<std::int64_t>(&value))
            sqlite3_bind_int64(statement, position, *integer);
        else if (const auto* real = std::get_if<double>(&value))
            sqlite3_bind_double(statement, position, *real);
        else if (const auto* text = std::get_if<std::string>(&value))
            sqlite3_bind_text(statement, position, text->data(), static_cast<int>(text->size()), SQLITE_TRANSIENT);
        else
            sqlite3_bind_null(statement, position);
    }
}

std::size_t copyRow(sqlite3_stmt* statement, std::vector<RawValue>& row)
{
    const int columns = sqlite3_column_count(statement);
    row.resize(static_cast<std::size_t>(columns));
    for (int i = 0; i < columns; ++i) {
        switch (sqlite3_column_type(statement, i)) {
        case SQLITE_INTEGER:
            row[i] = static_cast<std::int64_t>(sqlite3_column_int64(statement, i));
            break;
        case SQLITE_FLOAT:
            row[i] = sqlite3_column_double(statement, i);
            break;
        case SQLITE_TEXT:
            row[i] = std::string(reinterpret_cast<const char*>(sqlite3_column_text(statement, i)),
                                 static_cast<std::size_t>(sqlite3_column_bytes(statement, i)));
            break;
        default:
            row[i] = std::monostate();
            break;
        }
    }
    return static_cast<std::size_t>(columns);
}

bool qtOpensWithoutMutex()
{
    static const bool withoutMutex = [] {
        const QString name = QStringLiteral("tolvinpt-bench-open-flags");
        bool none = false;
        {
            QSqlDatabase connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
            connection.setDatabaseName(QStringLiteral(":memory:"));
            if (!connection.open())
                throw std::runtime_error("Qt cannot open an SQLite connection");
            none = sqlite3_db_mutex(db::sqliteHandle(connection)) == nullptr;
        }
        QSqlDatabase::removeDatabase(name);
        return none;
    }();
    return withoutMutex;
}

sqlite3* openLikeQt(const std::string& file)
{
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_PRIVATECACHE |
                      (qtOpensWithoutMutex() ? SQLITE_OPEN_NOMUTEX : 0);
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(file.c_str(), &db, flags, nullptr) != SQLITE_OK) {
        const std::string message = db ? sqlite3_errmsg(db) : "out of memory";
        sqlite3_close(db);
        throw std::runtime_error(message);
    }
    sqlite3_extended_result_codes(db, 1);
    sqlite3_busy_timeout(db, 5000); // QSQLITE_BUSY_TIMEOUT's default
    return db;
}

RawSqlite::RawSqlite(const std::string& file, const RawStatements& sql) : m_db(openLikeQt(file))
{
    m_read = prepare(sql.readRecord);
    m_find = prepare(sql.findByKey);
    m_insert = prepare(sql.insertRecord);
    m_deletePackages = prepare("DELETE FROM T_DeliveryQTY WHERE IDData = ?");
    m_delete = prepare("DELETE FROM T_Delivery WHERE IDData = ?");
    m_begin = prepare("BEGIN");
    m_commit = prepare("COMMIT");
}

RawSqlite::~RawSqlite()
{
    for (sqlite3_stmt* statement : m_statements)
        sqlite3_finalize(statement);
    sqlite3_close(m_db);
}

sqlite3_stmt* RawSqlite::prepare(const std::string& sql)
{
    sqlite3_stmt* statement = nullptr;
    check(m_db, sqlite3_prepare_v3(m_db, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr));
    m_statements.push_back(statement);
    return statement;
}

void RawSqlite::run(sqlite3_stmt* statement)
{
    const int rc = sqlite3_step(statement);
    sqlite3_reset(statement);
    check(m_db, rc);
}

std::size_t RawSqlite::readRecord(std::int64_t id)
{
    sqlite3_bind_int64(m_read, 1, id);
    std::size_t columns = 0;
    if (sqlite3_step(m_read) == SQLITE_ROW)
        columns = copyRow(m_read, m_row);
    sqlite3_reset(m_read);
    return columns;
}

std::optional<std::int64_t> RawSqlite::findByOrderKey(std::int64_t customer, const std::string& order,
                                                      const std::string& key)
{
    sqlite3_bind_int64(m_find, 1, customer);
    sqlite3_bind_text(m_find, 2, order.data(), static_cast<int>(order.size()), SQLITE_TRANSIENT);
    sqlite3_bind_text(m_find, 3, key.data(), static_cast<int>(key.size()), SQLITE_TRANSIENT);
    std::optional<std::int64_t> id;
    if (sqlite3_step(m_find) == SQLITE_ROW)
        id = sqlite3_column_int64(m_find, 0);
    sqlite3_reset(m_find);
    return id;
}

double RawSqlite::inTransaction(const std::function<double()>& calls)
{
    run(m_begin);
    const double result = calls();
    run(m_commit);
    return result;
}

void RawSqlite::insertAndDelete(const std::vector<RawValue>& values)
{
    run(m_begin);
    bindValues(m_insert, values);
    run(m_insert);
    const sqlite3_int64 id = sqlite3_last_insert_rowid(m_db);
    sqlite3_bind_int64(m_deletePackages, 1, id);
    run(m_deletePackages);
    sqlite3_bind_int64(m_delete, 1, id);
    run(m_delete);
    run(m_commit);
}

} // namespace tolvinpt::bench
