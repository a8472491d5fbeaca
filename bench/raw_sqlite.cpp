#include "bench/raw_sqlite.h"

#include "platform/sql/sqlite_backend.h"

#include <QSqlDatabase>

#include <sqlite3.h>

#include <stdexcept>

namespace tolvinpt::bench {

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
            sqlite3_bind_text(statement, position, text->data(), static_cast<int>(text->size()),
                              SQLITE_TRANSIENT);
        else
            sqlite3_bind_null(statement, position);
    }
}

void appendRow(sqlite3_stmt* statement, std::vector<RawValue>& values)
{
    const int columns = sqlite3_column_count(statement);
    for (int i = 0; i < columns; ++i) {
        switch (sqlite3_column_type(statement, i)) {
        case SQLITE_INTEGER:
            values.emplace_back(static_cast<std::int64_t>(sqlite3_column_int64(statement, i)));
            break;
        case SQLITE_FLOAT:
            values.emplace_back(sqlite3_column_double(statement, i));
            break;
        case SQLITE_TEXT:
            values.emplace_back(std::string(reinterpret_cast<const char*>(sqlite3_column_text(statement, i)),
                                            static_cast<std::size_t>(sqlite3_column_bytes(statement, i))));
            break;
        default:
            values.emplace_back(std::monostate());
            break;
        }
    }
}

std::size_t readRow(sqlite3_stmt* read, std::int64_t id, std::vector<RawValue>& row)
{
    sqlite3_bind_int64(read, 1, id);
    row.clear();
    if (sqlite3_step(read) == SQLITE_ROW)
        appendRow(read, row);
    sqlite3_reset(read);
    return row.size();
}

std::optional<std::int64_t> findByOrderKey(sqlite3_stmt* find, std::int64_t customer,
                                           const std::string& order, const std::string& key)
{
    sqlite3_bind_int64(find, 1, customer);
    sqlite3_bind_text(find, 2, order.data(), static_cast<int>(order.size()), SQLITE_TRANSIENT);
    sqlite3_bind_text(find, 3, key.data(), static_cast<int>(key.size()), SQLITE_TRANSIENT);
    std::optional<std::int64_t> id;
    if (sqlite3_step(find) == SQLITE_ROW)
        id = sqlite3_column_int64(find, 0);
    sqlite3_reset(find);
    return id;
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

RawConnection::RawConnection(const std::string& file) : m_db(openLikeQt(file))
{
}

RawConnection::~RawConnection()
{
    for (sqlite3_stmt* statement : m_statements)
        sqlite3_finalize(statement);
    sqlite3_close(m_db);
}

sqlite3_stmt* RawConnection::prepare(const std::string& sql)
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v3(m_db, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) !=
        SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(m_db));
    m_statements.push_back(statement);
    return statement;
}

void RawConnection::run(sqlite3_stmt* statement)
{
    const int rc = sqlite3_step(statement);
    sqlite3_reset(statement);
    if (rc != SQLITE_ROW && rc != SQLITE_DONE)
        throw std::runtime_error(sqlite3_errmsg(m_db));
}

RawSqlite::RawSqlite(const std::string& file, const RawStatements& sql) : m_connection(file)
{
    m_read = m_connection.prepare(sql.readRecord);
    m_find = m_connection.prepare(sql.findByKey);
    m_insert = m_connection.prepare(sql.insertRecord);
    m_deletePackages = m_connection.prepare("DELETE FROM T_DeliveryQTY WHERE IDData = ?");
    m_delete = m_connection.prepare("DELETE FROM T_Delivery WHERE IDData = ?");
    m_begin = m_connection.prepare("BEGIN");
    m_commit = m_connection.prepare("COMMIT");
}

double RawSqlite::inTransaction(const std::function<double()>& calls)
{
    m_connection.run(m_begin);
    const double result = calls();
    m_connection.run(m_commit);
    return result;
}

void RawSqlite::insertAndDelete(const std::vector<RawValue>& values)
{
    m_connection.run(m_begin);
    bindValues(m_insert, values);
    m_connection.run(m_insert);
    const sqlite3_int64 id = sqlite3_last_insert_rowid(m_connection.handle());
    sqlite3_bind_int64(m_deletePackages, 1, id);
    m_connection.run(m_deletePackages);
    sqlite3_bind_int64(m_delete, 1, id);
    m_connection.run(m_delete);
    m_connection.run(m_commit);
}

} // namespace tolvinpt::bench
