#pragma once

// The save benchmark's baseline: the statements of a save and of the order search through the sqlite3
// C API alone, on a connection of its own opened as Qt opens its connections.

#include "bench/raw_sqlite.h"

namespace tolvinpt::bench {

struct RawSaveStatements
{
    std::string findByKey;       // customer, order number, delivery key
    std::string readRecord;      // IDData
    std::string readPackages;    // IDData
    std::string updateDetail;    // the detail's values, then IDData
    std::string updatePackages;  // mode, quantity, IDData
    std::string deletePackages;  // IDData
    std::string insertPackage;   // IDData, Sequence, Quantity
    std::string searchWithRange; // customer, from, to, pattern
};

class RawSave
{
public:
    RawSave(const std::string& file, const RawSaveStatements& sql);

    // Runs a statement that returns nothing, such as a PRAGMA.
    void execute(const std::string& sql) { m_connection.execute(sql); }
    std::optional<std::int64_t> findByOrderKey(std::int64_t customer, const std::string& order,
                                               const std::string& key)
    {
        return bench::findByOrderKey(m_find, customer, order, key);
    }
    // Everything a save of an existing record does: in one write transaction the key check, the row and
    // its packages read and copied out, the detail update, the package mode, the package rows rewritten,
    // the row and packages read again. Returns the number of package rows read back.
    std::size_t save(std::int64_t id, std::int64_t customer, const std::string& order, const std::string& key,
                     const std::vector<RawValue>& detail, std::int64_t mode, const std::string& quantity,
                     const std::vector<std::string>& packages);
    // The first row of the order search, every column copied out; the number of columns, 0 for none.
    std::size_t search(std::int64_t customer, const std::string& from, const std::string& to,
                       const std::string& pattern);

private:
    std::size_t readPackages(std::int64_t id);

    RawConnection m_connection;
    sqlite3_stmt *m_find, *m_read, *m_readPackages, *m_update, *m_updatePackages, *m_deletePackages,
        *m_insertPackage, *m_search, *m_begin, *m_commit;
    std::vector<RawValue> m_row;
};

} // namespace tolvinpt::bench
