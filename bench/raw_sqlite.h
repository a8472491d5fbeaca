#pragma once

// The benchmark's baseline: the same statements through the sqlite3 C API alone, on a connection of its own.

#include <QVariant>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace tolvinpt::bench {

using RawValue = std::variant<std::monostate, std::int64_t, double, std::string>;

// A value as our layer would bind it (see SqliteStatement::bind), converted before any timing.
RawValue rawValue(const QVariant& value);
// Binds `values` from placeholder `first` (1-based) on.
void bindValues(sqlite3_stmt* statement, const std::vector<RawValue>& values, int first = 1);
// Copies every column of the statement's current row into `row`; returns the number of columns.
std::size_t copyRow(sqlite3_stmt* statement, std::vector<RawValue>& row);

// Opens `file` as Qt's QSQLITE driver opens its connections, so that the baseline pays the same
// locking per call: read-write (created when missing), extended result codes, Qt's busy timeout, and
// no connection mutex when Qt's connections have none. That last one is not assumed: a connection that
// Qt opens is asked once (SQLite gives a connection opened without a mutex no mutex to return).
sqlite3* openLikeQt(const std::string& file);
// Whether Qt opens its SQLite connections without a connection mutex (SQLITE_OPEN_NOMUTEX).
bool qtOpensWithoutMutex();

struct RawStatements
{
    std::string readRecord;   // one '?': IDData
    std::string findByKey;    // customer, order number, delivery key
    std::string insertRecord; // one '?' per value
};

class RawSqlite
{
public:
    RawSqlite(const std::string& file, const RawStatements& sql);
    RawSqlite(const RawSqlite&) = delete;
    RawSqlite& operator=(const RawSqlite&) = delete;
    ~RawSqlite();

    // Copies every column of the record out; the number of columns, 0 when there is no such record.
    std::size_t readRecord(std::int64_t id);
    std::optional<std::int64_t> findByOrderKey(std::int64_t customer, const std::string& order,
                                               const std::string& key);
    // Runs `calls` between BEGIN and COMMIT and returns what it returned.
    double inTransaction(const std::function<double()>& calls);
    // In one transaction: inserts a record with `values`, deletes its packages and itself.
    void insertAndDelete(const std::vector<RawValue>& values);

private:
    sqlite3_stmt* prepare(const std::string& sql);
    void run(sqlite3_stmt* statement);

    sqlite3* m_db = nullptr;
    std::vector<sqlite3_stmt*> m_statements;
    sqlite3_stmt* m_read;
    sqlite3_stmt* m_find;
    sqlite3_stmt* m_insert;
    sqlite3_stmt* m_deletePackages;
    sqlite3_stmt* m_delete;
    sqlite3_stmt* m_begin;
    sqlite3_stmt* m_commit;
    std::vector<RawValue> m_row;
};

} // namespace tolvinpt::bench
