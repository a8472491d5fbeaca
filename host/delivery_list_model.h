#pragma once

#include "host/list_query.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QList>
#include <QSqlDatabase>

#include <array>
#include <functional>
#include <utility>

namespace tolvinpt {
class Error;
}

namespace tolvinpt::host {

// Rows first to last of the list, both included.
struct RowSpan
{
    int first = 0;
    int last = 0;
    friend bool operator==(const RowSpan&, const RowSpan&) = default;
};

// A row of the customer master, as the list and its filter name it.
struct CustomerEntry
{
    qint64 id = 0;
    QString name;
    bool deleted = false;
};

// The delivery records that pass a filter, in the order of one column. The counts come from the database
// and the rows are read a page at a time as the view asks for them (a few pages are kept), so a list of
// a million records costs what a list of a few hundred does.
class DeliveryListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using enum ListColumn;
    enum Role {
        IdRole = Qt::UserRole, // IDData
        CustomerIdRole,
        KindRole,     // kind caption
        WasteBoxRole, // true for a record in the waste box
    };

    explicit DeliveryListModel(QString connectionName, QObject* parent = nullptr);

    // Shows the records that pass `query`'s filter in its order, with the counts and the customers read
    // anew. Throws tolvinpt::Error, leaving the list as it was.
    void show(const ListQuery& query);
    // As show(), but counting later: the first page is read now and the list holds only its rows until
    // countRows() (a server counts a million records in a few hundred milliseconds, which must not hold
    // up the first paint). Throws tolvinpt::Error, leaving the list as it was.
    void showCountingLater(const ListQuery& query);
    // Counts the list that showCountingLater showed; nothing once it is counted. Throws tolvinpt::Error.
    void countRows();
    bool counted() const { return m_counted; }
    // After an entry call on `ids` (records of the list): only they and records added since can have
    // changed, so the counts move by what those do now. Throws tolvinpt::Error.
    void refreshAfter(const QList<qint64>& ids);

    const ListQuery& query() const { return m_query; }
    qint64 totalCount() const { return m_total; } // every record, the waste box included
    const QList<CustomerEntry>& customers() const { return m_customers; }

    // IDData of the rows of `spans`, in that order. Throws tolvinpt::Error.
    QList<qint64> idsOfRows(const QList<RowSpan>& spans) const;
    // The rows at which the records `ids` stand, top to bottom, each with its IDData; records that the
    // list does not show are left out. Throws tolvinpt::Error.
    QList<std::pair<int, qint64>> rowsOf(const QList<qint64>& ids) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    // Typing in the view looks among the rows read so far, not through the whole list.
    QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits,
                          Qt::MatchFlags flags) const override;

signals:
    // Rows could not be read while the view asked for them; they show empty. Once per show.
    void readFailed(const QString& description, long number);

private:
    struct Row
    {
        std::array<QVariant, ListColumnCount> values;
        bool inWasteBox = false;
    };
    struct Page
    {
        QList<Row> rows;
        quint64 used = 0;
    };
    using Take = std::function<bool(const QSqlQuery&)>;

    struct Counts
    {
        qint64 shown = 0; // the records that pass the filter
        qint64 total = 0; // every record
    };

    static Row rowOf(const QSqlQuery& query);
    QSqlDatabase db() const;
    Counts readCounts(const ListQuery& query) const;
    void reset(const ListQuery& query, const Counts& counts, QList<Row> firstPage = {});
    void scan(const QList<Statement>& statements, const Take& take) const;
    qint64 number(const Statement& statement) const;
    std::pair<qint64, qint64> numbers(const Statement& statement) const;
    const Row* cachedRow(int row) const;
    const Row& row(int row) const;
    ListPlace placeOf(const Row& row) const;
    void readPage(int page) const;
    QList<Row> readRows(int first, int count) const;
    QList<CustomerEntry> readCustomers() const;
    QString customerName(qint64 id) const;

    QString m_connectionName;
    ListQuery m_query;
    qint64 m_count = 0;
    qint64 m_total = 0;
    qint64 m_maxId = 0; // the largest IDData known to the list
    QList<CustomerEntry> m_customers;
    QStringList m_kindCaptions;
    mutable QHash<int, Page> m_pages;
    mutable quint64 m_clock = 0;
    mutable bool m_failureReported = false;
    bool m_counted = true;
};

// "#0.###": up to three decimals, no trailing zeros.
QString formatQuantity(const QVariant& value);

} // namespace tolvinpt::host
