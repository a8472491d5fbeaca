#pragma once

#include <QList>
#include <QString>
#include <QVariant>

namespace tolvinpt {

namespace db {
class SqlDialect;
} // namespace db

// `column` matches a Like pattern, as a condition and the values to bind at its '?' in order: first a
// range on the pattern's literal start, which the order-key index serves (when the pattern has one), then
// the match itself, which decides.
struct LikeMatch
{
    QString sql;
    QList<QVariant> values;
};

// Throws DatabaseError for a pattern that cannot compile, before any statement runs: the Like function
// would refuse it only on the first row it sees, and with no row in range not at all.
LikeMatch likeMatch(const db::SqlDialect& dialect, const QString& column, const QString& pattern);

} // namespace tolvinpt
