#pragma once

// The benchmarks' baseline: the same statements through the sqlite3 C API alone, on a connection of its own.

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

// Opens `file` as Qt's QSQLITE driver opens its connections, so that the baseline pays the same
// locking per call: read-write (created when missing), extended result codes, Qt's busy timeout, and
// no connection mutex when Qt's connections have none. That last one is not assumed: a connection that
// Qt opens is asked once (SQLite gives a connection opened without a mutex no mutex to return).
sqlite3* openLikeQt(const std::string& file);
// Whether Qt opens its SQLite connections without a connection mutex (SQLITE_OPEN_NOMUTEX).
bool qtOpensWithoutMutex();

// A connection opened by openLikeQt and the statements prepared on it, finalized with it.
class RawConnection
{
public:
    explicit RawConnection(const std::string& file);
    RawConnection(const RawConnection&) = delete;
    RawConnection& operator=(const RawConnection&) = delete;
    ~RawConnection();

    sqlite3* handle() const { return m_db; }
    // Prepared once, kept for the connection's life. Throws std::runtime_error.
    sqlite3_stmt* prepare(const std::string& sql);
    // One step, then a reset. Throws std::runtime_error for an error.
    void run(sqlite3_stmt* statement);
    void execute(const std::string& sql) { run(prepare(sql)); }

private:
    sqlite3* m_db;
    std::vector<sqlite3_stmt*> m_statements;
};

// A value as our layer would bind it (see SqliteStatement::bind), converted before any timing.
RawValue rawValue(const QVariant& value);
// Binds `values` from placeholder `first` (1-based) on.
void bindValues(sqlite3_stmt* statement, const std::vector<RawValue>& values, int first = 1);
// Appends every column of the statement's current row to `values`.
void appendRow(sqlite3_stmt* statement, std::vector<RawValue>& values);
// Runs `read` with `id` as its one '?' and copies its first row into `row` (cleared first); the number of
// columns, 0 for no row.
std::size_t readRow(sqlite3_stmt* read, std::int64_t id, std::vector<RawValue>& row);
// Runs `find` (customer, order number, delivery key) for the first row's first column.
std::optional<std::int64_t> findByOrderKey(sqlite3_stmt* find, std::int64_t customer,
                                           const std::string& order, const std::string& key);

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

    // Copies every column of the record out; the number of columns, 0 when there is no such record.
    std::size_t readRecord(std::int64_t id) { return readRow(m_read, id, m_row); }
    std::optional<std::int64_t> findByOrderKey(std::int64_t customer, const std::string& order,
                                               const std::string& key)
    {
        return bench::findByOrderKey(m_find, customer, order, key);
    }
    // Runs `calls` between BEGIN and COMMIT and returns what it returned.
    double inTransaction(const std::function<double()>& calls);
    // In one transaction: inserts a record with `values`, deletes its packages and itself.
    void insertAndDelete(const std::vector<RawValue>& values);

private:
    RawConnection m_connection;
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
