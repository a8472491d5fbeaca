#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>

namespace tolvinpt::db {
class SqlDialect;
} // namespace tolvinpt::db

namespace tolvinpt::host {

// What the list shows and sorts by for an unknown quantity and an unknown date: below any real one.
inline constexpr double kNoQuantityValue = -1e308;
inline const QString kNoQuantity = QStringLiteral("-1e308");
inline const QString kNoDate = QStringLiteral("0001-01-01");

// The columns of the delivery list, left to right.
enum ListColumn : int {
    Id,
    CustomerName,
    Kind,
    OrderNumber,
    DeliveryKey,
    ItemName,
    DeliveryQuantity,
    Unit,
    Currency,
    DueDate,
    ShipDate,
    DeliveryDate,
    ListColumnCount
};

QString columnHeader(int column);

// Which records the list shows.
struct ListFilter
{
    std::optional<qint64> customerId;
    std::optional<int> kind; // an index into kindCaptions()
    bool showWasteBox = false;
    friend bool operator==(const ListFilter&, const ListFilter&) = default;
};

// A record's place in the list order: its value in the sorted column, then its IDData.
struct ListPlace
{
    QVariant key;
    qint64 id = 0;
};

// One statement and the values bound to its placeholders, in order.
struct Statement
{
    QString sql;
    QVariantList values;
};

// The statements behind the list for one filter and one order. Each column has a value that is never
// Null (what the list shows, sorts by and the index holds) and an index that starts with that value and
// IDData and carries the filter's columns: pages, counts and positions are searches and scans of that
// index that never read the table for the rows they pass over.
class ListQuery
{
public:
    enum Way { Forward, Backward }; // along the list order or against it

    ListQuery() = default;
    ListQuery(const ListFilter& filter, int column, Qt::SortOrder order);

    const ListFilter& filter() const { return m_filter; }
    int column() const { return m_column; }
    Qt::SortOrder order() const { return m_order; }

    // The records that pass the filter.
    Statement count() const;
    // The records in the waste box: few, so the usual list (all but those) is counted as the difference.
    static Statement wasteBoxCount();
    // `select` of `limit` rows in list order (or against it), skipping `offset` rows from that end.
    Statement fromEnd(const QString& select, Way way, qint64 offset, qint64 limit) const;
    // `select` of the rows beyond `place` (and `place` itself when `inclusive`) as two statements: those
    // that share its key, by IDData, then those with a key beyond it, each of at most `limit` rows. A
    // unique key needs only the second.
    QList<Statement> from(const QString& select, Way way, const ListPlace& place, bool inclusive,
                          std::optional<qint64> limit = std::nullopt) const;
    // The same as counts (summed, they count the rows before `place`).
    QList<Statement> countBefore(const ListPlace& place) const;
    // `select` of the records among `ids` that pass the filter, in list order when `ordered`; the ids bound
    // as one value in the form of `dialect`.
    Statement among(const QString& select, const QList<qint64>& ids, const db::SqlDialect& dialect,
                    bool ordered = true) const;
    // Two counts in one pass over the records among `ids` (bound as in among): all of them, and those
    // that pass the filter.
    Statement countsAmong(const QList<qint64>& ids, const db::SqlDialect& dialect) const;
    // The same two counts over the records above IDData `id`.
    Statement countsNewerThan(qint64 id) const;

    // The column's value: what the list shows and sorts by.
    static QString value(int column);
    // Every column's value, then InDustBox: the select list of a row of the list.
    static QString rowSelect();
    // The column's value and IDData: the select list of a place.
    QString placeSelect() const;

private:
    // Search: the filter's index may serve the terms. Walk: the index of the list order is walked.
    enum class Use { Search, Walk };
    QString where(QVariantList& values, Use use) const;
    QString orderBy(Way way) const;
    bool ascending(Way way) const { return (way == Forward) == (m_order == Qt::AscendingOrder); }
    QString base(const QString& select, QVariantList& values) const;
    Statement counts(const QString& range, const QVariant& value) const;
    QList<Statement> beyond(const QString& select, Way way, const ListPlace& place, bool inclusive,
                            bool ordered, std::optional<qint64> limit) const;

    ListFilter m_filter;
    int m_column = Id;
    Qt::SortOrder m_order = Qt::AscendingOrder;
};

// CREATE INDEX IF NOT EXISTS statements for the list's indexes, and their names.
QStringList listIndexStatements();
QStringList listIndexNames();

} // namespace tolvinpt::host
