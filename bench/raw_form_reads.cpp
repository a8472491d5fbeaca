#include "bench/raw_form_reads.h"

#include "bench/raw_sqlite.h"

#include <sqlite3.h>

#include <algorithm>
#include <numeric>
#include <stdexcept>

namespace tolvinpt::bench {

RawFormReads::RawFormReads(const std::string& file, const std::string& recordSql,
                           const std::string& packagesSql)
    : m_db(openLikeQt(file))
{
    m_record = prepare(recordSql);
    m_packages = prepare(packagesSql);
    m_key = prepare("SELECT F00159 FROM T_Delivery WHERE IDData = ?");
    m_begin = prepare("BEGIN");
    m_commit = prepare("COMMIT");
}

RawFormReads::~RawFormReads()
{
    for (sqlite3_stmt* statement : m_statements)
        sqlite3_finalize(statement);
    sqlite3_close(m_db);
}

sqlite3_stmt* RawFormReads::prepare(const std::string& sql)
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v3(m_db, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) !=
        SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(m_db));
    m_statements.push_back(statement);
    return statement;
}

void RawFormReads::copyRow(sqlite3_stmt* statement)
{
    for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        switch (sqlite3_column_type(statement, i)) {
        case SQLITE_INTEGER:
            m_values.emplace_back(static_cast<std::int64_t>(sqlite3_column_int64(statement, i)));
            break;
        case SQLITE_FLOAT:
            m_values.emplace_back(sqlite3_column_double(statement, i));
            break;
        case SQLITE_TEXT:
            m_values.emplace_back(
                std::string(reinterpret_cast<const char*>(sqlite3_column_text(statement, i)),
                            static_cast<std::size_t>(sqlite3_column_bytes(statement, i))));
            break;
        default:
            m_values.emplace_back(std::monostate());
            break;
        }
    }
}

std::size_t RawFormReads::readRecordAndPackages(std::int64_t id)
{
    m_values.clear();
    sqlite3_bind_int64(m_record, 1, id);
    const bool found = sqlite3_step(m_record) == SQLITE_ROW;
    if (found)
        copyRow(m_record);
    sqlite3_reset(m_record);
    if (!found)
        return 0;
    sqlite3_bind_int64(m_packages, 1, id);
    while (sqlite3_step(m_packages) == SQLITE_ROW)
        copyRow(m_packages);
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
