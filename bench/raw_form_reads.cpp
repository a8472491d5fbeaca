#include "bench/raw_form_reads.h"

#include <sqlite3.h>

#include <algorithm>
#include <numeric>

namespace tolvinpt::bench {

RawFormReads::RawFormReads(const std::string& file, const std::string& recordSql,
                           const std::string& packagesSql)
    : m_connection(file)
{
    m_record = m_connection.prepare(recordSql);
    m_packages = m_connection.prepare(packagesSql);
    m_key = m_connection.prepare("SELECT F00159 FROM T_Delivery WHERE IDData = ?");
    m_begin = m_connection.prepare("BEGIN");
    m_commit = m_connection.prepare("COMMIT");
}

std::size_t RawFormReads::readRecordAndPackages(std::int64_t id)
{
    m_values.clear();
    sqlite3_bind_int64(m_record, 1, id);
    const bool found = sqlite3_step(m_record) == SQLITE_ROW;
    if (found)
        appendRow(m_record, m_values);
    sqlite3_reset(m_record);
    if (!found)
        return 0;
    sqlite3_bind_int64(m_packages, 1, id);
    while (sqlite3_step(m_packages) == SQLITE_ROW)
        appendRow(m_packages, m_values);
    sqlite3_reset(m_packages);
    return m_values.size();
}

std::vector<std::optional<std::string>> RawFormReads::readDeliveryKeys(const std::vector<long long>& ids)
{
    std::vector<std::size_t> order(ids.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return ids[a] < ids[b]; });
    std::vector<std::optional<std::string>> keys(ids.size());
    sqlite3_step(m_begin);
    sqlite3_reset(m_begin);
    for (const std::size_t at : order) {
        sqlite3_bind_int64(m_key, 1, ids[at]);
        if (sqlite3_step(m_key) == SQLITE_ROW) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_key, 0));
            keys[at] = text ? std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(m_key, 0)))
                            : std::string();
        }
        sqlite3_reset(m_key);
    }
    sqlite3_step(m_commit);
    sqlite3_reset(m_commit);
    return keys;
}

} // namespace tolvinpt::bench
