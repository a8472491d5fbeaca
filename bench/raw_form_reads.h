#pragma once

// The form benchmark's baseline: the reads behind a record display and a record list, through the
// sqlite3 C API alone on a connection of its own.

#include "bench/raw_sqlite.h"

namespace tolvinpt::bench {

class RawFormReads
{
public:
    // `recordSql` and `packagesSql` take the IDData as their one '?'.
    RawFormReads(const std::string& file, const std::string& recordSql, const std::string& packagesSql);

    // Copies every column of the record and the quantities of its package rows out; the number of
    // values copied, 0 when there is no such record.
    std::size_t readRecordAndPackages(std::int64_t id);
    // The delivery key numbers (F00159) of the records `ids`, in one transaction, in ascending id
    // order as the record list reads them: per id its key, nullopt when there is no such record.
    std::vector<std::optional<std::string>> readDeliveryKeys(const std::vector<long long>& ids);

private:
    RawConnection m_connection;
    sqlite3_stmt* m_record;
    sqlite3_stmt* m_packages;
    sqlite3_stmt* m_key;
    sqlite3_stmt* m_begin;
    sqlite3_stmt* m_commit;
    std::vector<RawValue> m_values;
};

} // namespace tolvinpt::bench
