#include "platform/sql/database.h"
#include "platform/sql/jet_like.h"
#include "platform/sql/sql_dialect.h"
#include "store/delivery_reads.h"
#include "store/delivery_save.h"
#include "store/like_match.h"

using namespace Qt::StringLiterals;

namespace tolvinpt {

LikeMatch likeMatch(const db::SqlDialect& dialect, const QString& column, const QString& pattern)
{
    if (!db::LikePattern::compile(pattern))
        throw db::DatabaseError(u"Invalid Like pattern: "_s + pattern, 0);
    LikeMatch match;
    if (const auto range = dialect.textPrefixRange(column, db::likeLiteralPrefix(pattern))) {
        match.sql = range->sql + u" AND "_s;
        match.values = {range->from, range->to};
    }
    match.sql += dialect.matchesLike(column);
    match.values.append(dialect.likeValue(pattern));
    return match;
}

namespace {

QString orderSearchSql(const LikeMatch& order)
{
    return u"SELECT * FROM T_Delivery WHERE IDCustomer = ? AND "_s + order.sql +
           u" ORDER BY F00159, IDData LIMIT 1"_s;
}

} // namespace

QString orderSearchSql(const db::SqlDialect& dialect, bool literalStart)
{
    // A pattern with a literal start has the range on the order-key index, so only those rows are matched.
    return orderSearchSql(likeMatch(dialect, u"F00007"_s, literalStart ? u"A"_s : u"*"_s));
}

std::optional<DeliveryRecord> findOrderRecord(db::Database& database, qint64 customer,
                                              const QString& orderPattern)
{
    const LikeMatch match = likeMatch(database.dialect(), u"F00007"_s, orderPattern);
    db::Statement statement = database.prepare(orderSearchSql(match));
    statement.bind(0, customer);
    for (int i = 0; i < match.values.size(); ++i)
        statement.bind(i + 1, match.values[i]);
    statement.exec();
    if (!statement.next())
        return std::nullopt;
    return deliveryRecordOfRow(statement);
}

} // namespace tolvinpt
