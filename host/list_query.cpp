#include "host/list_query.h"

#include "host/record_kind.h"

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
        {u"得意先", u"Customer", QStringLiteral("IFNULL(IDCustomer, 0)")},
        {u"種別", u"Kind", kindExpression()},
        {u"注文番号", u"OrderNumber", QStringLiteral("IFNULL(F00007, '')")},
        {u"納品ｷｰ番号", u"DeliveryKey", QStringLiteral("IFNULL(F00159, '')")},
        // The full-width item name reads best; hand input may carry only the half-width one.
        {u"品名", u"ItemName", QStringLiteral("COALESCE(NULLIF(F00262, ''), F00022, '')")},
        // An unknown quantity comes first, as an empty text does (-9e999 is minus infinity).
        {u"納入数量", u"Quantity", QStringLiteral("IFNULL(F00036, -9e999)")},
        {u"単位", u"Unit", QStringLiteral("IFNULL(F00012, '')")},
        // Yen is stored as empty text, blanks or Null and shown as JPY.
        {u"通貨", u"Currency", QStringLiteral("IFNULL(NULLIF(TRIM(F00281), ''), 'JPY')")},
        {u"納期", u"DueDate", QStringLiteral("IFNULL(F00031, '')")},
        {u"出荷日", u"ShipDate", QStringLiteral("IFNULL(F00039, '')")},
        {u"納入日", u"DeliveryDate", QStringLiteral("IFNULL(F00040, '')")},
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
// The smallest index of the table: SQLite counts all records through it, and the waste box is a range of it.
const QString kWasteBoxIndex = QStringLiteral("IX_DeliveryList_WasteBox");

QString jsonArray(const QList<qint64>& ids)
{
    QStringList numbers;
    numbers.reserve(ids.size());
    for (qint64 id : ids)
        numbers << QString::number(id);
    return u'[' + numbers.join(u',') + u']';
}

} // namespace

QString columnHeader(int column)
{
    return QString::fromUtf16(columns().at(column).header);
}

QStringList listIndexStatements()
{
    const QString create = QStringLiteral("CREATE INDEX IF NOT EXISTS %1 ON T_Delivery (%2)");
    QStringList statements{create.arg(kWasteBoxIndex, QStringLiteral("InDustBox")),
                           create.arg(kFilterIndex, kFilterColumns)};
    for (int column = 0; column < ListColumnCount; ++column) {
        const QString leading =
            column == Id ? QStringLiteral("IDData") : ListQuery::value(column) + QStringLiteral(", IDData");
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

QString ListQuery::where(QVariantList& values) const
{
    QStringList conditions;
    if (!m_filter.showWasteBox)
        conditions << QStringLiteral("InDustBox = 0");
    if (m_filter.customerId) {
        conditions << QStringLiteral("IDCustomer = ?");
        values << *m_filter.customerId;
    }
    if (m_filter.kind)
        conditions << kindCondition(*m_filter.kind);
    return conditions.join(QStringLiteral(" AND "));
}

QString ListQuery::base(const QString& select, QVariantList& values) const
{
    const QString conditions = where(values);
    return QStringLiteral("SELECT %1 FROM T_Delivery INDEXED BY %2 WHERE %3")
        .arg(select, indexName(m_column), conditions.isEmpty() ? QStringLiteral("1") : conditions);
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
    const QString conditions = where(values);
    if (conditions.isEmpty())
        return {QStringLiteral("SELECT COUNT(*) FROM T_Delivery"), {}};
    return {QStringLiteral("SELECT COUNT(*) FROM T_Delivery INDEXED BY %1 WHERE %2")
                .arg(kFilterIndex, conditions),
            values};
}

Statement ListQuery::wasteBoxCount()
{
    // Any value but 0 is true: two ranges of the index.
    return {
        QStringLiteral("SELECT COUNT(*) FROM T_Delivery INDEXED BY %1 WHERE InDustBox < 0 OR InDustBox > 0")
            .arg(kWasteBoxIndex),
        {}};
}

Statement ListQuery::fromEnd(const QString& select, Way way, qint64 offset) const
{
    Statement statement;
    statement.sql = base(select, statement.values) + orderBy(way) + QStringLiteral(" LIMIT -1 OFFSET ?");
    statement.values << offset;
    return statement;
}

QList<Statement> ListQuery::beyond(const QString& select, Way way, const ListPlace& place, bool inclusive,
                                   bool ordered) const
{
    const QString after = ascending(way) ? QStringLiteral(">") : QStringLiteral("<");
    const QString idBeyond =
        QStringLiteral(" AND IDData ") + after + (inclusive ? QStringLiteral("= ?") : QStringLiteral(" ?"));
    if (m_column == Id) {
        Statement rest;
        rest.sql = base(select, rest.values) + idBeyond + (ordered ? orderBy(way) : QString());
        rest.values << place.id;
        return {rest};
    }
    const QString direction = ascending(way) ? QStringLiteral(" ASC") : QStringLiteral(" DESC");
    Statement same;
    same.sql = base(select, same.values) + QStringLiteral(" AND ") + value(m_column) +
               QStringLiteral(" = ?") + idBeyond +
               (ordered ? QStringLiteral(" ORDER BY IDData") + direction : QString());
    same.values << place.key << place.id;
    Statement rest;
    rest.sql = base(select, rest.values) + QStringLiteral(" AND ") + value(m_column) + u' ' + after +
               QStringLiteral(" ?") + (ordered ? orderBy(way) : QString());
    rest.values << place.key;
    return {same, rest};
}

QList<Statement> ListQuery::from(const QString& select, Way way, const ListPlace& place, bool inclusive) const
{
    return beyond(select, way, place, inclusive, true);
}

QList<Statement> ListQuery::countBefore(const ListPlace& place) const
{
    return beyond(QStringLiteral("COUNT(*)"), Backward, place, false, false);
}

Statement ListQuery::among(const QString& select, const QList<qint64>& ids, bool ordered) const
{
    // NOT INDEXED: looked up by rowid, then sorted; the column's index would be scanned in full.
    Statement statement;
    const QString conditions = where(statement.values);
    statement.sql =
        QStringLiteral("SELECT %1 FROM T_Delivery NOT INDEXED WHERE IDData IN "
                       "(SELECT value FROM json_each(?))%2")
            .arg(select, conditions.isEmpty() ? QString() : QStringLiteral(" AND ") + conditions) +
        (ordered ? orderBy(Forward) : QString());
    statement.values.prepend(jsonArray(ids));
    return statement;
}

Statement ListQuery::newerThan(const QString& select, qint64 id) const
{
    Statement statement;
    statement.values << id;
    const QString conditions = where(statement.values);
    statement.sql = QStringLiteral("SELECT %1 FROM T_Delivery WHERE IDData > ?%2")
                        .arg(select, conditions.isEmpty() ? QString() : QStringLiteral(" AND ") + conditions);
    return statement;
}

} // namespace tolvinpt::host
