#include "host/list_query.h"

#include "host/record_kind.h"

#include "platform/sql/sql_dialect.h"

#include <QList>

namespace tolvinpt::host {
namespace {

struct ColumnSql
{
    const char16_t* header;
    const char16_t* index; // IX_DeliveryList_<index>
    QString value;         // never Null
};

QList<ColumnSql> buildColumns()
{
    return {
        {u"ID", u"Id", QStringLiteral("IDData")},
        // Customers sort in the order of the customer master, as the customer filter lists them.
        {u"得意先", u"Customer", QStringLiteral("COALESCE(IDCustomer, 0)")},
        {u"種別", u"Kind", kindExpression()},
        {u"注文番号", u"OrderNumber", QStringLiteral("COALESCE(F00007, '')")},
        {u"納品ｷｰ番号", u"DeliveryKey", QStringLiteral("COALESCE(F00159, '')")},
        // The full-width item name reads best; hand input may carry only the half-width one.
        {u"品名", u"ItemName", QStringLiteral("COALESCE(NULLIF(F00262, ''), F00022, '')")},
        // An unknown quantity or date comes first, as an empty text does.
        {u"納入数量", u"Quantity", QStringLiteral("COALESCE(F00036, %1)").arg(kNoQuantity)},
        {u"単位", u"Unit", QStringLiteral("COALESCE(F00012, '')")},
        // Yen is stored as empty text, blanks or Null and shown as JPY.
        {u"通貨", u"Currency", QStringLiteral("COALESCE(NULLIF(TRIM(F00281), ''), 'JPY')")},
        {u"納期", u"DueDate", QStringLiteral("COALESCE(F00031, '%1')").arg(kNoDate)},
        {u"出荷日", u"ShipDate", QStringLiteral("COALESCE(F00039, '%1')").arg(kNoDate)},
        {u"納入日", u"DeliveryDate", QStringLiteral("COALESCE(F00040, '%1')").arg(kNoDate)},
    };
}

const QList<ColumnSql>& columns()
{
    static const QList<ColumnSql> table = buildColumns();
    return table;
}

QString indexName(int column)
{
    return QStringLiteral("IX_DeliveryList_") + QString::fromUtf16(columns().at(column).index);
}

// The filter's columns, carried by every index of the list so that the filter never reads the table.
const QString kFilterColumns = QStringLiteral("InDustBox, IDCustomer, F00002, F00030");
const QString kFilterIndex = QStringLiteral("IX_DeliveryList_Filter");
// The smallest index of the table: all records are counted through it, and the waste box is a range of it.
const QString kWasteBoxIndex = QStringLiteral("IX_DeliveryList_WasteBox");

} // namespace

QString columnHeader(int column)
{
    return QString::fromUtf16(columns().at(column).header);
}

QStringList listIndexNames()
{
    QStringList names{kWasteBoxIndex, kFilterIndex};
    for (int column = 0; column < ListColumnCount; ++column)
        names << indexName(column);
    return names;
}

QStringList listIndexStatements()
{
    const QString create = QStringLiteral("CREATE INDEX IF NOT EXISTS %1 ON T_Delivery (%2)");
    QStringList statements{create.arg(kWasteBoxIndex, QStringLiteral("InDustBox")),
                           create.arg(kFilterIndex, kFilterColumns)};
    for (int column = 0; column < ListColumnCount; ++column) {
        // An expression in parentheses: the form every engine takes.
        const QString leading = column == Id ? QStringLiteral("IDData")
                                             : u'(' + ListQuery::value(column) + QStringLiteral("), IDData");
        statements << create.arg(indexName(column), leading + QStringLiteral(", ") + kFilterColumns);
    }
    return statements;
}

ListQuery::ListQuery(const ListFilter& filter, int column, Qt::SortOrder order)
    : m_filter(filter), m_column(column), m_order(order)
{
}

QString ListQuery::value(int column)
{
    return columns().at(column).value;
}

QString ListQuery::rowSelect()
{
    QStringList values;
    for (int column = 0; column < ListColumnCount; ++column)
        values << value(column);
    return values.join(QStringLiteral(", ")) + QStringLiteral(", InDustBox");
}

QString ListQuery::placeSelect() const
{
    return value(m_column) + QStringLiteral(", IDData");
}

QString ListQuery::where(QVariantList& values, Use use) const
{
    // A page walks the index of the list order and tests the filter on its entries. Written as casts,
    // the terms stay off SQLite's index search, which would rather search the filter's index and sort
    // every match; a server's planner sees through a cast to the column's own type. The waste-box flag
    // is an integer (any non-zero value true) or a boolean: FALSE is 0 to the one and false to the other.
    const bool walk = use == Use::Walk;
    QStringList conditions;
    if (!m_filter.showWasteBox)
        conditions << (walk ? QStringLiteral("NOT CAST(InDustBox AS BOOLEAN)")
                            : QStringLiteral("InDustBox = FALSE"));
    if (m_filter.customerId) {
        conditions << (walk ? QStringLiteral("CAST(IDCustomer AS INTEGER) = ?")
                            : QStringLiteral("IDCustomer = ?"));
        values << *m_filter.customerId;
    }
    if (m_filter.kind)
        conditions << kindCondition(*m_filter.kind);
    return conditions.join(QStringLiteral(" AND "));
}

QString ListQuery::base(const QString& select, QVariantList& values) const
{
    const QString conditions = where(values, Use::Walk);
    return QStringLiteral("SELECT %1 FROM T_Delivery WHERE %2")
        .arg(select, conditions.isEmpty() ? QStringLiteral("1 = 1") : conditions);
}

QString ListQuery::orderBy(Way way) const
{
    const QString direction = ascending(way) ? QStringLiteral(" ASC") : QStringLiteral(" DESC");
    if (m_column == Id)
        return QStringLiteral(" ORDER BY IDData") + direction;
    return QStringLiteral(" ORDER BY ") + value(m_column) + direction + QStringLiteral(", IDData") +
           direction;
}

Statement ListQuery::count() const
{
    QVariantList values;
    const QString conditions = where(values, Use::Search);
    if (conditions.isEmpty())
        return {QStringLiteral("SELECT COUNT(*) FROM T_Delivery"), {}};
    return {QStringLiteral("SELECT COUNT(*) FROM T_Delivery WHERE %1").arg(conditions), values};
}

Statement ListQuery::wasteBoxCount()
{
    // Any value but 0 is true: two ranges of the index, each counted on its own (as one condition joined
    // by OR, a server's planner scans the whole index).
    return {QStringLiteral("SELECT (SELECT COUNT(*) FROM T_Delivery WHERE InDustBox < FALSE) + "
                           "(SELECT COUNT(*) FROM T_Delivery WHERE InDustBox > FALSE)"),
            {}};
}

Statement ListQuery::fromEnd(const QString& select, Way way, qint64 offset, qint64 limit) const
{
    Statement statement;
    statement.sql = base(select, statement.values) + orderBy(way) + QStringLiteral(" LIMIT ? OFFSET ?");
    statement.values << limit << offset;
    return statement;
}

QList<Statement> ListQuery::beyond(const QString& select, Way way, const ListPlace& place, bool inclusive,
                                   bool ordered, std::optional<qint64> limit) const
{
    // A server sends every row of a result: a page asks for no more rows than it takes.
    const QString limited = limit ? QStringLiteral(" LIMIT ?") : QString();
    const QString after = ascending(way) ? QStringLiteral(">") : QStringLiteral("<");
    const QString idBeyond =
        QStringLiteral(" AND IDData ") + after + (inclusive ? QStringLiteral("= ?") : QStringLiteral(" ?"));
    if (m_column == Id) {
        Statement rest;
        rest.sql = base(select, rest.values) + idBeyond + (ordered ? orderBy(way) : QString()) + limited;
        rest.values << place.id;
        if (limit)
            rest.values << *limit;
        return {rest};
    }
    const QString direction = ascending(way) ? QStringLiteral(" ASC") : QStringLiteral(" DESC");
    Statement same;
    same.sql = base(select, same.values) + QStringLiteral(" AND ") + value(m_column) +
               QStringLiteral(" = ?") + idBeyond +
               (ordered ? QStringLiteral(" ORDER BY IDData") + direction : QString()) + limited;
    same.values << place.key << place.id;
    Statement rest;
    rest.sql = base(select, rest.values) + QStringLiteral(" AND ") + value(m_column) + u' ' + after +
               QStringLiteral(" ?") + (ordered ? orderBy(way) : QString()) + limited;
    rest.values << place.key;
    if (limit) {
        same.values << *limit;
        rest.values << *limit;
    }
    return {same, rest};
}

QList<Statement> ListQuery::from(const QString& select, Way way, const ListPlace& place, bool inclusive,
                                 std::optional<qint64> limit) const
{
    return beyond(select, way, place, inclusive, true, limit);
}

QList<Statement> ListQuery::countBefore(const ListPlace& place) const
{
    return beyond(QStringLiteral("COUNT(*)"), Backward, place, false, false, std::nullopt);
}

Statement ListQuery::among(const QString& select, const QList<qint64>& ids, const db::SqlDialect& dialect,
                           bool ordered) const
{
    // Looked up by IDData, then sorted.
    Statement statement;
    statement.values << db::SqlDialect::integerListValue(ids);
    const QString conditions = where(statement.values, Use::Walk);
    statement.sql = QStringLiteral("SELECT %1 FROM T_Delivery WHERE %2%3")
                        .arg(select, dialect.inIntegerList(QStringLiteral("IDData")),
                             conditions.isEmpty() ? QString() : QStringLiteral(" AND ") + conditions) +
                    (ordered ? orderBy(Forward) : QString());
    return statement;
}

Statement ListQuery::counts(const QString& range, const QVariant& value) const
{
    Statement statement;
    const QString conditions = where(statement.values, Use::Search);
    statement.values << value;
    statement.sql =
        QStringLiteral(
            "SELECT COUNT(*), COALESCE(SUM(CASE WHEN %1 THEN 1 ELSE 0 END), 0) FROM T_Delivery WHERE %2")
            .arg(conditions.isEmpty() ? QStringLiteral("1 = 1") : conditions, range);
    return statement;
}

Statement ListQuery::countsAmong(const QList<qint64>& ids, const db::SqlDialect& dialect) const
{
    return counts(dialect.inIntegerList(QStringLiteral("IDData")), db::SqlDialect::integerListValue(ids));
}

Statement ListQuery::countsNewerThan(qint64 id) const
{
    return counts(QStringLiteral("IDData > ?"), id);
}

} // namespace tolvinpt::host
