#include "bench/raw_save.h"

#include "platform/sqlite_backend.h"

#include <sqlite3.h>

#include <stdexcept>

namespace tolvinpt::bench {

RawSave::RawSave(const std::string& file, const RawSaveStatements& sql) : m_db(openLikeQt(file))
{
    // The search's Like is our SQL function on both sides: what differs is the layer around it.
    db::ensureLikeFunction(m_db);
    m_find = prepare(sql.findByKey);
    m_read = prepare(sql.readRecord);
    m_readPackages = prepare(sql.readPackages);
    m_update = prepare(sql.updateDetail);
    m_updatePackages = prepare(sql.updatePackages);
    m_deletePackages = prepare(sql.deletePackages);
    m_insertPackage = prepare(sql.insertPackage);
    m_search = prepare(sql.searchWithRange);
    m_begin = prepare("BEGIN IMMEDIATE");
    m_commit = prepare("COMMIT");
}

RawSave::~RawSave()
{
    for (sqlite3_stmt* statement : m_statements)
        sqlite3_finalize(statement);
    sqlite3_close(m_db);
}

sqlite3_stmt* RawSave::prepare(const std::string& sql)
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v3(m_db, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(m_db));
    m_statements.push_back(statement);
    return statement;
}

void RawSave::run(sqlite3_stmt* statement)
{
    const int rc = sqlite3_step(statement);
    sqlite3_reset(statement);
    if (rc != SQLITE_ROW && rc != SQLITE_DONE)
        throw std::runtime_error(sqlite3_errmsg(m_db));
}

void RawSave::execute(const std::string& sql)
{
    run(prepare(sql));
}

std::optional<std::int64_t> RawSave::findByOrderKey(std::int64_t customer, const std::string& order,
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

std::size_t RawSave::readRecord(std::int64_t id)
{
    sqlite3_bind_int64(m_read, 1, id);
    std::size_t columns = 0;
    if (sqlite3_step(m_read) == SQLITE_ROW)
        columns = copyRow(m_read, m_row);
    sqlite3_reset(m_read);
    return columns;
}

std::size_t RawSave::readPackages(std::int64_t id)
{
    sqlite3_bind_int64(m_readPackages, 1, id);
    std::size_t rows = 0;
    for (; sqlite3_step(m_readPackages) == SQLITE_ROW; ++rows)
        copyRow(m_readPackages, m_row);
    sqlite3_reset(m_readPackages);
    return rows;
}

std::size_t RawSave::save(std::int64_t id, std::int64_t customer, const std::string& order, const std::string& key,
                          const std::vector<RawValue>& detail, std::int64_t mode, const std::string& quantity,
                          const std::vector<std::string>& packages)
{
    run(m_begin);
    if (findByOrderKey(customer, order, key) != id)
        throw std::runtime_error("the saved record's key is not its own");
    readRecord(id);
    readPackages(id);
    bindValues(m_update, detail);
    sqlite3_bind_int64(m_update, static_cast<int>(detail.size()) + 1, id);
    run(m_update);
    sqlite3_bind_int64(m_updatePackages, 1, mode);
    sqlite3_bind_text(m_updatePackages, 2, quantity.data(), static_cast<int>(quantity.size()), SQLITE_TRANSIENT);
    sqlite3_bind_int64(m_updatePackages, 3, id);
    run(m_updatePackages);
    sqlite3_bind_int64(m_deletePackages, 1, id);
    run(m_deletePackages);
    for (std::size_t i = 0; i < packages.size(); ++i) {
        sqlite3_bind_int64(m_insertPackage, 1, id);
        sqlite3_bind_int64(m_insertPackage, 2, static_cast<std::int64_t>(i) + 1);
        sqlite3_bind_text(m_insertPackage, 3, packages[i].data(), static_cast<int>(packages[i].size()),
                          SQLITE_TRANSIENT);
        run(m_insertPackage);
    }
    readRecord(id);
    const std::size_t rows = readPackages(id);
    run(m_commit);
    return rows;
}

std::size_t RawSave::search(std::int64_t customer, const std::string& from, const std::string& to,
                            const std::string& pattern)
{
    sqlite3_bind_int64(m_search, 1, customer);
    sqlite3_bind_text(m_search, 2, from.data(), static_cast<int>(from.size()), SQLITE_TRANSIENT);
    sqlite3_bind_text(m_search, 3, to.data(), static_cast<int>(to.size()), SQLITE_TRANSIENT);
    sqlite3_bind_text(m_search, 4, pattern.data(), static_cast<int>(pattern.size()), SQLITE_TRANSIENT);
    std::size_t columns = 0;
    if (sqlite3_step(m_search) == SQLITE_ROW)
        columns = copyRow(m_search, m_row);
    sqlite3_reset(m_search);
    return columns;
}

} // namespace tolvinpt::bench
