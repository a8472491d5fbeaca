#pragma once

// The PostgreSQL benchmarks' baseline: the same statements through libpq alone, on a connection of its
// own. Like our layer, it prepares each statement once on the server and sends and reads values as text.

#include "bench/raw_save.h"

#include <QVariant>

#include <climits>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

struct pg_conn;

namespace tolvinpt::bench {

// A value as text, as our layer sends it to the server; nullopt for Null.
using PgValue = std::optional<std::string>;

// A value as our layer would send it (see PostgresqlStatement::bind), converted before any timing.
PgValue pgValue(const QVariant& value);
// Statement texts as the raw side takes them.
std::vector<std::string> statementTexts(const QStringList& statements);

class RawPgConnection
{
public:
    // `uri`: a libpq connection URI (postgresql://...).
    explicit RawPgConnection(const std::string& uri);
    RawPgConnection(const RawPgConnection&) = delete;
    RawPgConnection& operator=(const RawPgConnection&) = delete;
    ~RawPgConnection();

    // Prepares `sql` ('?' placeholders) on the server, once; the statement's number. Throws
    // std::runtime_error.
    int prepare(const std::string& sql);
    // Runs statement `statement` with `values` and copies every column of the first `copied` rows into
    // `rows` (cleared first) when given; the number of rows. Throws std::runtime_error.
    std::size_t run(int statement, const std::vector<PgValue>& values, std::vector<PgValue>* rows = nullptr,
                    int copied = INT_MAX);
    // The first row's first column as an integer.
    std::optional<std::int64_t> first(int statement, const std::vector<PgValue>& values);
    // Prepares each of `sql` and runs them in turn, without values.
    std::vector<int> prepareAll(const std::vector<std::string>& sql);
    void runAll(const std::vector<int>& statements);

private:
    pg_conn* m_connection;
    int m_statements = 0;
};

class RawPgStore
{
public:
    // The statements of RawSqlite; the transactions begin with the statements our layer begins them with.
    RawPgStore(const std::string& uri, const RawStatements& sql, const std::vector<std::string>& beginRead,
               const std::vector<std::string>& beginWrite);

    std::size_t readRecord(std::int64_t id);
    std::optional<std::int64_t> findByOrderKey(std::int64_t customer, const std::string& order,
                                               const std::string& key);
    // Runs `calls` in a read transaction and returns what it returned.
    double inTransaction(const std::function<double()>& calls);
    // In one write transaction: inserts a record with `values`, deletes its packages and itself.
    void insertAndDelete(const std::vector<PgValue>& values);

private:
    RawPgConnection m_connection;
    int m_read, m_find, m_insert, m_deletePackages, m_delete, m_commit;
    std::vector<int> m_beginRead, m_beginWrite;
    std::vector<PgValue> m_row;
};

class RawPgSave
{
public:
    // The statements of RawSave; a write transaction begins with the statements our layer begins it with.
    RawPgSave(const std::string& uri, const RawSaveStatements& sql,
              const std::vector<std::string>& beginWrite);

    std::optional<std::int64_t> findByOrderKey(std::int64_t customer, const std::string& order,
                                               const std::string& key);
    // What RawSave::save does, in a write transaction as our layer opens it.
    std::size_t save(std::int64_t id, std::int64_t customer, const std::string& order, const std::string& key,
                     const std::vector<PgValue>& detail, std::int64_t mode, const std::string& quantity,
                     const std::vector<std::string>& packages);
    // The first row of the order search, every column copied out; the number of columns, 0 for none.
    std::size_t search(std::int64_t customer, const std::string& from, const std::string& to,
                       const std::string& pattern);

private:
    RawPgConnection m_connection;
    int m_find, m_read, m_readPackages, m_update, m_updatePackages, m_deletePackages, m_insertPackage,
        m_search, m_commit;
    std::vector<int> m_beginWrite;
    std::vector<PgValue> m_row;
};

} // namespace tolvinpt::bench
