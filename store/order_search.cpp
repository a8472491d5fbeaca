#include "platform/database.h"
#include "platform/jet_like.h"
#include "platform/sql_dialect.h"
#include "store/delivery_reads.h"
#include "store/delivery_save.h"

using namespace Qt::StringLiterals;

namespace tolvinpt {

QString orderSearchSql(const db::SqlDialect& dialect, bool literalStart)
{
    QString sql = u"SELECT * FROM T_Delivery WHERE IDCustomer = ?"_s;
    // The pattern's literal start as a range on the order-key index, so that only those rows are matched.
    if (literalStart)
        sql += u" AND "_s + dialect.textPrefixRange(u"F00007"_s, u"A").value().sql;
    return sql + u" AND "_s + dialect.matchesLike(u"F00007"_s) + u" ORDER BY F00159, IDData LIMIT 1"_s;
}

std::optional<DeliveryRecord> findOrderRecord(db::Database& database, qint64 customer, const QString& orderPattern)
{
    // The Like function would refuse it only on the first row it sees; with none in range, not at all.
    if (!db::LikePattern::compile(orderPattern))
        throw db::DatabaseError(u"Invalid Like pattern: "_s + orderPattern, 0);
    const auto range = database.dialect().textPrefixRange(u"F00007"_s, db::likeLiteralPrefix(orderPattern));
    db::Statement statement = database.prepare(orderSearchSql(database.dialect(), range.has_value()));
    int index = 0;
    statement.bind(index++, customer);
    if (range) {
        statement.bind(index++, range->from);
        statement.bind(index++, range->to);
    }
    statement.bind(index, orderPattern).exec();
    if (!statement.next())
        return std::nullopt;
    return deliveryRecordOfRow(statement);
}

} // namespace tolvinpt
