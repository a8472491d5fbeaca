#include "host/delivery_list_model.h"

#include "host/record_kind.h"
#include "host/sql_script.h"

#include <tolvinpt/error.h>

#include <QDate>
#include <QFont>
#include <QGuiApplication>
#include <QPalette>

#include <QSet>

#include <algorithm>
#include <optional>

namespace tolvinpt::host {
namespace {

// Rows read with one statement; the view shows some forty at a time.
constexpr int kPageRows = 128;
// Pages kept: enough for a view and the pages around it, a few hundred kilobytes.
constexpr int kKeptPages = 24;
// Rows passed over per statement when finding the rows of records.
constexpr qint64 kWalkRows = 4096;

QString shownDate(const QVariant& value)
{
    const QString iso = value.toString().left(10);
    if (iso == kNoDate)
        return {};
    const QDate date = QDate::fromString(iso, Qt::ISODate);
    return date.isValid() ? date.toString(QStringLiteral("yyyy/MM/dd")) : iso;
}

// Every record, whatever the filter shows.
const ListQuery kAllRecords(ListFilter{std::nullopt, std::nullopt, true}, Id, Qt::AscendingOrder);

} // namespace

QString formatQuantity(const QVariant& value)
{
    if (value.isNull() || value.toDouble() <= kNoQuantityValue)
        return {};
    QString text = QString::number(value.toDouble(), 'f', 3);
    while (text.endsWith(u'0'))
        text.chop(1);
    if (text.endsWith(u'.'))
        text.chop(1);
    return text;
}

DeliveryListModel::DeliveryListModel(QString connectionName, QObject* parent)
    : QAbstractTableModel(parent), m_connectionName(std::move(connectionName)), m_kindCaptions(kindCaptions())
{
}

DeliveryListModel::Row DeliveryListModel::rowOf(const QSqlQuery& query)
{
    Row row;
    for (int column = 0; column < ListColumnCount; ++column)
        row.values[column] = query.value(column);
    row.inWasteBox = query.value(ListColumnCount).toLongLong() != 0;
    return row;
}

QSqlDatabase DeliveryListModel::db() const
{
    return QSqlDatabase::database(m_connectionName, false);
}

void DeliveryListModel::scan(const QList<Statement>& statements, const Take& take) const
{
    for (const Statement& statement : statements) {
        QSqlQuery query = execQuery(db(), statement.sql, statement.values);
        while (query.next())
            if (!take(query))
                return;
    }
}

qint64 DeliveryListModel::number(const Statement& statement) const
{
    QSqlQuery query = execQuery(db(), statement.sql, statement.values);
    return query.next() ? query.value(0).toLongLong() : 0;
}

std::pair<qint64, qint64> DeliveryListModel::numbers(const Statement& statement) const
{
    QSqlQuery query = execQuery(db(), statement.sql, statement.values);
    return query.next() ? std::pair(query.value(0).toLongLong(), query.value(1).toLongLong())
                        : std::pair(0LL, 0LL);
}

DeliveryListModel::Counts DeliveryListModel::readCounts(const ListQuery& query) const
{
    // Counting a million index entries takes a while; the usual list is counted from its few exceptions.
    const qint64 total = number(kAllRecords.count());
    return {query.filter() == ListFilter{} ? total - number(ListQuery::wasteBoxCount())
                                           : number(query.count()),
            total};
}

void DeliveryListModel::reset(const ListQuery& query, const Counts& counts, QList<Row> firstPage)
{
    const qint64 maxId = number({QStringLiteral("SELECT MAX(IDData) FROM T_Delivery"), {}});
    QList<CustomerEntry> customers = readCustomers();
    beginResetModel();
    m_query = query;
    m_count = counts.shown;
    m_total = counts.total;
    m_maxId = maxId;
    m_customers = std::move(customers);
    m_pages.clear();
    if (!firstPage.isEmpty())
        m_pages.insert(0, {std::move(firstPage), ++m_clock});
    m_failureReported = false;
    endResetModel();
}

void DeliveryListModel::show(const ListQuery& query)
{
    const Counts counts = readCounts(query);
    reset(query, counts);
    m_counted = true;
}

void DeliveryListModel::showCountingLater(const ListQuery& query)
{
    // The first page and a row more: whether there is more to count.
    QList<Row> rows;
    scan({query.fromEnd(ListQuery::rowSelect(), ListQuery::Forward, 0, kPageRows + 1)},
         [&](const QSqlQuery& q) {
             rows.append(rowOf(q));
             return true;
         });
    const qint64 read = rows.size();
    rows = rows.mid(0, kPageRows);
    reset(query, {read, read}, std::move(rows));
    m_counted = false;
}

void DeliveryListModel::countRows()
{
    if (m_counted)
        return;
    const Counts counts = readCounts(m_query);
    m_total = counts.total;
    m_counted = true;
    if (counts.shown > m_count) {
        beginInsertRows({}, int(m_count), int(counts.shown - 1));
        m_count = counts.shown;
        endInsertRows();
    } else if (counts.shown < m_count) { // records went between the first page and the count
        beginResetModel();
        m_count = counts.shown;
        m_pages.clear();
        endResetModel();
    }
}

void DeliveryListModel::refreshAfter(const QList<qint64>& ids)
{
    countRows();
    const auto [amongAll, amongShown] = numbers(m_query.countsAmong(ids, dialectOf(db())));
    const auto [addedAll, addedShown] = numbers(m_query.countsNewerThan(m_maxId));
    const qint64 count = m_count - ids.size() + amongShown + addedShown;
    const qint64 total = m_total - ids.size() + amongAll + addedAll;
    const qint64 maxId =
        std::max(m_maxId, number({QStringLiteral("SELECT MAX(IDData) FROM T_Delivery"), {}}));
    beginResetModel();
    m_count = count;
    m_total = total;
    m_maxId = maxId;
    m_pages.clear();
    m_failureReported = false;
    endResetModel();
}

QList<CustomerEntry> DeliveryListModel::readCustomers() const
{
    QList<CustomerEntry> customers;
    QSqlQuery query = execQuery(
        db(), QStringLiteral("SELECT IDCustomer, Name, Deleted FROM T_Customer ORDER BY IDCustomer"));
    while (query.next())
        customers.append(
            {query.value(0).toLongLong(), query.value(1).toString(), query.value(2).toLongLong() != 0});
    return customers;
}

QString DeliveryListModel::customerName(qint64 id) const
{
    const auto found = std::find_if(m_customers.begin(), m_customers.end(),
                                    [id](const CustomerEntry& customer) { return customer.id == id; });
    return found == m_customers.end() ? QString() : found->name;
}

const DeliveryListModel::Row* DeliveryListModel::cachedRow(int row) const
{
    if (row < 0)
        return nullptr;
    const auto page = m_pages.find(row / kPageRows);
    if (page == m_pages.end() || row % kPageRows >= page->rows.size())
        return nullptr;
    return &page->rows.at(row % kPageRows);
}

ListPlace DeliveryListModel::placeOf(const Row& row) const
{
    return {row.values.at(m_query.column()), row.values.at(Id).toLongLong()};
}

QList<DeliveryListModel::Row> DeliveryListModel::readRows(int first, int count) const
{
    QList<Row> rows;
    const Take take = [&](const QSqlQuery& query) {
        rows.append(rowOf(query));
        return rows.size() < count;
    };
    // From a neighbouring row already read when there is one (scrolling), else from the nearer end.
    const QString select = ListQuery::rowSelect();
    const qint64 after = m_count - first - count;
    if (const Row* before = cachedRow(first - 1)) {
        scan(m_query.from(select, ListQuery::Forward, placeOf(*before), false, count), take);
    } else if (const Row* next = cachedRow(first + count)) {
        scan(m_query.from(select, ListQuery::Backward, placeOf(*next), false, count), take);
        std::reverse(rows.begin(), rows.end());
    } else if (first <= after) {
        scan({m_query.fromEnd(select, ListQuery::Forward, first, count)}, take);
    } else {
        scan({m_query.fromEnd(select, ListQuery::Backward, after, count)}, take);
        std::reverse(rows.begin(), rows.end());
    }
    return rows;
}

void DeliveryListModel::readPage(int page) const
{
    const int first = page * kPageRows;
    const int count = int(std::min<qint64>(kPageRows, m_count - first));
    m_pages.insert(page, {count > 0 ? readRows(first, count) : QList<Row>(), ++m_clock});
    while (m_pages.size() > kKeptPages) {
        const auto oldest = std::min_element(m_pages.begin(), m_pages.end(),
                                             [](const Page& a, const Page& b) { return a.used < b.used; });
        m_pages.erase(oldest);
    }
}

const DeliveryListModel::Row& DeliveryListModel::row(int row) const
{
    static const Row empty;
    const int page = row / kPageRows;
    if (!m_pages.contains(page)) {
        try {
            readPage(page);
        } catch (const Error& e) {
            // Not thrown through the view's painting: the page stays empty and the failure is told once.
            m_pages.insert(page, {{}, ++m_clock});
            if (!m_failureReported) {
                m_failureReported = true;
                QMetaObject::invokeMethod(
                    const_cast<DeliveryListModel*>(this),
                    [this, description = e.description(), number = e.number()] {
                        emit const_cast<DeliveryListModel*>(this)->readFailed(description, number);
                    },
                    Qt::QueuedConnection);
            }
        }
    }
    Page& cached = m_pages[page];
    cached.used = ++m_clock;
    return row % kPageRows < cached.rows.size() ? cached.rows.at(row % kPageRows) : empty;
}

QList<qint64> DeliveryListModel::idsOfRows(const QList<RowSpan>& spans) const
{
    QList<qint64> ids;
    for (const RowSpan& span : spans) {
        int row = span.first;
        while (row <= span.last) {
            if (const Row* cached = cachedRow(row)) {
                ids << cached->values.at(Id).toLongLong();
                ++row;
                continue;
            }
            // A run of rows not read yet: their places only, from the row before or from the top.
            int last = row;
            while (last < span.last && !cachedRow(last + 1))
                ++last;
            const qsizetype wanted = ids.size() + (last - row + 1);
            const Take take = [&](const QSqlQuery& query) {
                ids << query.value(1).toLongLong();
                return ids.size() < wanted;
            };
            const qint64 runLength = last - row + 1;
            if (const Row* before = cachedRow(row - 1))
                scan(m_query.from(m_query.placeSelect(), ListQuery::Forward, placeOf(*before), false,
                                  runLength),
                     take);
            else
                scan({m_query.fromEnd(m_query.placeSelect(), ListQuery::Forward, row, runLength)}, take);
            if (ids.size() < wanted) // the list has fewer rows than it had when counted
                return ids;
            row = last + 1;
        }
    }
    return ids;
}

QList<std::pair<int, qint64>> DeliveryListModel::rowsOf(const QList<qint64>& ids) const
{
    // Those that the list shows, and the first of them in list order.
    QSet<qint64> shown;
    std::optional<ListPlace> first;
    scan({m_query.among(m_query.placeSelect(), ids, dialectOf(db()))}, [&](const QSqlQuery& query) {
        const qint64 id = query.value(1).toLongLong();
        if (!first)
            first = ListPlace{query.value(0), id};
        shown.insert(id);
        return true;
    });
    if (!first)
        return {};
    // Its row is the count of rows before it; the rest are met walking on from there, a bounded stretch
    // per statement (a server sends every row a statement selects, to the end of the list).
    qint64 row = 0;
    scan(m_query.countBefore(*first), [&](const QSqlQuery& query) {
        row += query.value(0).toLongLong();
        return true;
    });
    QList<std::pair<int, qint64>> rows;
    ListPlace place = *first;
    bool inclusive = true;
    qint64 walked = kWalkRows;
    while (rows.size() < shown.size() && walked == kWalkRows) {
        walked = 0;
        scan(m_query.from(m_query.placeSelect(), ListQuery::Forward, place, inclusive, kWalkRows),
             [&](const QSqlQuery& query) {
                 place = {query.value(0), query.value(1).toLongLong()};
                 if (shown.contains(place.id))
                     rows.append({int(row), place.id});
                 ++row;
                 return ++walked < kWalkRows && rows.size() < shown.size();
             });
        inclusive = false;
    }
    return rows;
}

int DeliveryListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_count);
}

int DeliveryListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ListColumnCount;
}

QVariant DeliveryListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::TextAlignmentRole:
        return index.column() == Id || index.column() == DeliveryQuantity
                   ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
                   : QVariant();
    case IdRole:
    case CustomerIdRole:
    case KindRole:
    case WasteBoxRole:
    case Qt::DisplayRole:
    case Qt::ForegroundRole:
    case Qt::FontRole:
        break;
    default:
        return {};
    }
    const Row& r = row(index.row());
    if (r.values.at(Id).isNull()) // a row that could not be read
        return {};
    const QVariant& value = r.values.at(index.column());
    switch (role) {
    case IdRole:
        return r.values.at(Id);
    case CustomerIdRole:
        return r.values.at(CustomerName);
    case KindRole:
        return m_kindCaptions.value(r.values.at(Kind).toInt());
    case WasteBoxRole:
        return r.inWasteBox;
    case Qt::ForegroundRole:
        return r.inWasteBox ? QVariant(QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text))
                            : QVariant();
    case Qt::FontRole: {
        if (!r.inWasteBox)
            return {};
        QFont font;
        font.setStrikeOut(true);
        return font;
    }
    default:
        break;
    }
    switch (index.column()) {
    case Id:
        return QString::number(value.toLongLong());
    case CustomerName:
        return customerName(value.toLongLong());
    case Kind:
        return m_kindCaptions.value(value.toInt());
    case DeliveryQuantity:
        return formatQuantity(value);
    case DueDate:
    case ShipDate:
    case DeliveryDate:
        return shownDate(value);
    default:
        return value.toString();
    }
}

QVariant DeliveryListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= ListColumnCount)
        return QAbstractTableModel::headerData(section, orientation, role);
    return columnHeader(section);
}

QModelIndexList DeliveryListModel::match(const QModelIndex& start, int role, const QVariant& value, int hits,
                                         Qt::MatchFlags flags) const
{
    // From the start row down, then (wrapping) from the top.
    QList<int> ahead;
    QList<int> behind;
    for (auto page = m_pages.begin(); page != m_pages.end(); ++page)
        for (int i = 0; i < page->rows.size(); ++i)
            (page.key() * kPageRows + i >= start.row() ? ahead : behind) << page.key() * kPageRows + i;
    std::sort(ahead.begin(), ahead.end());
    std::sort(behind.begin(), behind.end());
    if (flags.testFlag(Qt::MatchWrap))
        ahead += behind;
    const Qt::CaseSensitivity cs =
        flags.testFlag(Qt::MatchCaseSensitive) ? Qt::CaseSensitive : Qt::CaseInsensitive;
    QModelIndexList found;
    for (int row : ahead) {
        const QModelIndex candidate = index(row, start.column());
        if (candidate.data(role).toString().startsWith(value.toString(), cs))
            found << candidate;
        if (found.size() == hits)
            break;
    }
    return found;
}

} // namespace tolvinpt::host
