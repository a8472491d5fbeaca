#include "store/delivery_split.h"

#include "platform/sql/database.h"
#include "platform/sql/sql_dialect.h"
#include "platform/sql/transaction.h"
#include "platform/values/text.h"
#include "store/delivery_writes.h"
#include "store/like_match.h"
#include "store/package_mode.h"

using namespace Qt::StringLiterals;

namespace tolvinpt {

namespace {

using C = DeliveryColumn;

// What one half of a split sets, in this order.
using Changes = std::vector<std::pair<DeliveryColumn, QVariant>>;

// A column name as the table reports it, quoted: a host's own columns may have any name.
QString quoted(const QString& name)
{
    return u'"' + QString(name).replace(u'"', u"\"\""_s) + u'"';
}

// The live records of the buyer whose order number and delivery key number match `key`: a condition
// from "FROM" on, with its values.
LikeMatch orderKeyMatch(const db::SqlDialect& dialect, const DeliverySplit& split, const QString& key)
{
    const LikeMatch order = likeMatch(dialect, u"F00007"_s, rightTrim(split.orderNumber));
    const LikeMatch delivery = likeMatch(dialect, u"F00159"_s, rightTrim(key));
    return {u" FROM T_Delivery WHERE IDCustomer = ? AND "_s + dialect.isFalse(u"InDustBox"_s) + u" AND "_s +
                order.sql + u" AND "_s + delivery.sql,
            QList<QVariant>{split.customer} + order.values + delivery.values};
}

QString keyTestSql(const LikeMatch& newKey)
{
    return u"SELECT IDData"_s + newKey.sql + u" LIMIT 1"_s;
}

QString sourceSql(const LikeMatch& oldKey)
{
    return u"SELECT *"_s + oldKey.sql + u" ORDER BY IDData LIMIT 1"_s;
}

db::Statement run(db::Database& database, const QString& sql, const QList<QVariant>& values)
{
    db::Statement statement = database.prepare(sql);
    for (int i = 0; i < values.size(); ++i)
        statement.bind(i, values[i]);
    statement.exec();
    return statement;
}

// A half that now holds `quantity` is a single package of it when it was packed individually, or in
// equal packages at least that large; otherwise its package mode and quantity stay.
bool becomesSinglePackage(const DeliveryRecord& source, Currency quantity)
{
    const auto mode = source.integer(C::QuantityType);
    if (mode == int(PackageMode::Individual))
        return true;
    const auto package = source.currency(C::Quantity);
    return mode == int(PackageMode::Equal) && package && *package >= quantity;
}

// What a half of the split sets: its delivery quantity, maybe a single package, no print dates.
Changes halfOf(const db::SqlDialect& dialect, const DeliveryRecord& source, Currency quantity)
{
    const QString text = quantity.toString();
    Changes changes{{C::F00036, storedValue(dialect, C::F00036, text)}};
    if (becomesSinglePackage(source, quantity)) {
        changes.emplace_back(C::QuantityType, int(PackageMode::Single));
        changes.emplace_back(C::Quantity, storedValue(dialect, C::Quantity, text));
    }
    changes.emplace_back(C::DateDeliveryPrint, QVariant());
    changes.emplace_back(C::DateLabelPrint, QVariant());
    return changes;
}

const QVariant* changed(const Changes& changes, std::optional<DeliveryColumn> column)
{
    for (const auto& [c, value] : changes) {
        if (column == c)
            return &value;
    }
    return nullptr;
}

// The new row: every column of the table after the first (the identifier) copied by position from the
// record, a '?' for each that the split sets; the record's IDData last.
QString insertSql(const db::SqlDialect& dialect, const QStringList& columns, const Changes& changes)
{
    QStringList names, values;
    for (qsizetype i = 1; i < columns.size(); ++i) {
        names.append(quoted(columns[i]));
        values.append(changed(changes, deliveryColumnNamed(columns[i])) ? u"?"_s : quoted(columns[i]));
    }
    QString sql = u"INSERT INTO T_Delivery ("_s + names.join(u", "_s) + u") SELECT "_s +
                  values.join(u", "_s) + u" FROM T_Delivery WHERE "_s + quoted(columns[0]) + u" = ?"_s;
    if (dialect.insertReturnsKey())
        sql += u" RETURNING "_s + quoted(columns[0]);
    return sql;
}

QList<QVariant> insertValues(const QStringList& columns, const Changes& changes, qint64 id)
{
    QList<QVariant> values;
    for (qsizetype i = 1; i < columns.size(); ++i) {
        if (const QVariant* value = changed(changes, deliveryColumnNamed(columns[i])))
            values.append(*value);
    }
    values.append(id);
    return values;
}

// The record's own row: what the split sets of the columns the table has.
QString updateSql(const DeliveryRecord& source, const Changes& changes)
{
    QStringList assignments;
    for (const auto& [column, value] : changes) {
        if (source.has(column))
            assignments.append(columnName(column) + u" = ?"_s);
    }
    return u"UPDATE T_Delivery SET "_s + assignments.join(u", "_s) + u" WHERE IDData = ?"_s;
}

QList<QVariant> updateValues(const DeliveryRecord& source, const Changes& changes, qint64 id)
{
    QList<QVariant> values;
    for (const auto& [column, value] : changes) {
        if (source.has(column))
            values.append(value);
    }
    values.append(id);
    return values;
}

Changes newRowOf(const db::SqlDialect& dialect, const DeliverySplit& split, const DeliveryRecord& source)
{
    Changes changes = halfOf(dialect, source, split.newQuantity);
    changes.emplace_back(C::F00159, storedValue(dialect, C::F00159, split.newKey));
    return changes;
}

qint64 insertNewRow(db::Database& database, const QStringList& columns, const Changes& changes, qint64 id)
{
    db::Statement insert =
        run(database, insertSql(database.dialect(), columns, changes), insertValues(columns, changes, id));
    return database.insertedKey(insert);
}

struct Source
{
    DeliveryRecord record;
    QStringList columns; // the table's, in its order
};

// The first live record of the buyer that matches the order number and the old key. Only the record on
// screen is split: a first match that is another record (a wildcard in the key number, an order key
// edited but not saved) counts as none.
Source sourceOf(db::Database& database, const DeliverySplit& split)
{
    const LikeMatch oldKey = orderKeyMatch(database.dialect(), split, split.oldKey);
    db::Statement found = run(database, sourceSql(oldKey), oldKey.values);
    if (found.next()) {
        Source source{deliveryRecordOfRow(found), found.columnNames()};
        if (source.record.id() == split.id)
            return source;
    }
    throw db::DatabaseError(u"No current record."_s, 3021);
}

} // namespace

SplitResult splitDelivery(db::Database& database, db::Transaction& transaction, const DeliverySplit& split)
{
    const db::SqlDialect& dialect = database.dialect();
    SplitResult result;
    const LikeMatch newKey = orderKeyMatch(dialect, split, split.newKey);
    if (run(database, keyTestSql(newKey), newKey.values).next())
        result.outcome = SaveOutcome::DuplicateKey;
    else if (const auto changed = changedSinceShown(database, split.id, split.shown, split.shownPackages))
        result.outcome = *changed;
    if (result.outcome != SaveOutcome::Saved) {
        transaction.commit();
        return result;
    }

    const auto [source, columns] = sourceOf(database, split);
    result.newId = insertNewRow(database, columns, newRowOf(dialect, split, source), split.id);
    const Changes rest = halfOf(dialect, source, split.oldQuantity - split.newQuantity);
    run(database, updateSql(source, rest), updateValues(source, rest, split.id));
    if (source.integer(C::QuantityType) == int(PackageMode::Individual))
        database.execute(packageRowsDeleteSql(), {split.id});
    transaction.commit();
    return result;
}

SplitPlan splitPlan(const db::SqlDialect& dialect, const DeliverySplit& split, const QStringList& columns,
                    const DeliveryRecord& source)
{
    const LikeMatch newKey = orderKeyMatch(dialect, split, split.newKey);
    const LikeMatch oldKey = orderKeyMatch(dialect, split, split.oldKey);
    const Changes added = newRowOf(dialect, split, source);
    const Changes rest = halfOf(dialect, source, split.oldQuantity - split.newQuantity);
    return {{keyTestSql(newKey), newKey.values},
            {sourceSql(oldKey), oldKey.values},
            {insertSql(dialect, columns, added), insertValues(columns, added, split.id)},
            {updateSql(source, rest), updateValues(source, rest, split.id)},
            {packageRowsDeleteSql(), {split.id}}};
}

} // namespace tolvinpt
