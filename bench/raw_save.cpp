#include "bench/raw_save.h"

#include "platform/sql/sqlite_backend.h"

#include <sqlite3.h>

#include <stdexcept>

namespace tolvinpt::bench {

RawSave::RawSave(const std::string& file, const RawSaveStatements& sql) : m_connection(file)
{
    // The search's Like is our SQL function on both sides: what differs is the layer around it.
    db::ensureLikeFunction(m_connection.handle());
    m_find = m_connection.prepare(sql.findByKey);
    m_read = m_connection.prepare(sql.readRecord);
    m_readPackages = m_connection.prepare(sql.readPackages);
    m_update = m_connection.prepare(sql.updateDetail);
    m_updatePackages = m_connection.prepare(sql.updatePackages);
    m_deletePackages = m_connection.prepare(sql.deletePackages);
    m_insertPackage = m_connection.prepare(sql.insertPackage);
    m_search = m_connection.prepare(sql.searchWithRange);
    m_begin = m_connection.prepare("BEGIN IMMEDIATE");
    m_commit = m_connection.prepare("COMMIT");
}

std::size_t RawSave::readPackages(std::int64_t id)
{
    sqlite3_bind_int64(m_readPackages, 1, id);
    std::size_t rows = 0;
    m_row.clear();
    for (; sqlite3_step(m_readPackages) == SQLITE_ROW; ++rows)
        appendRow(m_readPackages, m_row);
    sqlite3_reset(m_readPackages);
    return rows;
}

std::size_t RawSave::save(std::int64_t id, std::int64_t customer, const std::string& order,
                          const std::string& key, const std::vector<RawValue>& detail, std::int64_t mode,
                          const std::string& quantity, const std::vector<std::string>& packages)
{
    m_connection.run(m_begin);
    if (findByOrderKey(customer, order, key) != id)
        throw std::runtime_error("the saved record's key is not its own");
    readRow(m_read, id, m_row);
    readPackages(id);
    bindValues(m_update, detail);
    sqlite3_bind_int64(m_update, static_cast<int>(detail.size()) + 1, id);
    m_connection.run(m_update);
    sqlite3_bind_int64(m_updatePackages, 1, mode);
    sqlite3_bind_text(m_updatePackages, 2, quantity.data(), static_cast<int>(quantity.size()),
                      SQLITE_TRANSIENT);
    sqlite3_bind_int64(m_updatePackages, 3, id);
    m_connection.run(m_updatePackages);
    sqlite3_bind_int64(m_deletePackages, 1, id);
    m_connection.run(m_deletePackages);
    for (std::size_t i = 0; i < packages.size(); ++i) {
        sqlite3_bind_int64(m_insertPackage, 1, id);
        sqlite3_bind_int64(m_insertPackage, 2, static_cast<std::int64_t>(i) + 1);
        sqlite3_bind_text(m_insertPackage, 3, packages[i].data(), static_cast<int>(packages[i].size()),
                          SQLITE_TRANSIENT);
        m_connection.run(m_insertPackage);
    }
    readRow(m_read, id, m_row);
    const std::size_t rows = readPackages(id);
    m_connection.run(m_commit);
    return rows;
}

std::size_t RawSave::search(std::int64_t customer, const std::string& from, const std::string& to,
                            const std::string& pattern)
{
    sqlite3_bind_int64(m_search, 1, customer);
    sqlite3_bind_text(m_search, 2, from.data(), static_cast<int>(from.size()), SQLITE_TRANSIENT);
    sqlite3_bind_text(m_search, 3, to.data(), static_cast<int>(to.size()), SQLITE_TRANSIENT);
    sqlite3_bind_text(m_search, 4, pattern.data(), static_cast<int>(pattern.size()), SQLITE_TRANSIENT);
    m_row.clear();
    if (sqlite3_step(m_search) == SQLITE_ROW)
        appendRow(m_search, m_row);
    sqlite3_reset(m_search);
    return m_row.size();
}

} // namespace tolvinpt::bench
