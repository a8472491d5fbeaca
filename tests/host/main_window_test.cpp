// The list window on a real demo database, driven through its widgets offscreen.
#include "tests/host/host_fixture.h"
#include "tests/support/operator_input.h"
#include "tests/support/scripted_messages.h"

#include "host/delivery_list_model.h"
#include "host/list_selection.h"
#include "host/main_window.h"

#include <tolvinpt/error.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QStatusBar>
#include <QTableView>
#include <QTest>

#include <functional>

namespace tolvinpt::host::test {

using namespace Qt::StringLiterals;
namespace {

using tolvinpt::test::ScriptedMessages;

// The host passes each record as its list key, the id followed by "Key".
qint64 idOfListKey(const QVariant& element)
{
    const QString key = element.toString();
    EXPECT_TRUE(key.endsWith(u"Key"_s)) << key.toStdString();
    return key.chopped(3).toLongLong();
}

// Stands in for the entry form: records each call and runs what the test gives it.
struct RecordingCalls final : public EntryCalls
{
    void inputData(Items& items) override
    {
        inputs.append(QList<qint64>());
        for (int i = 1; i <= items.Count(); ++i)
            inputs.last() << idOfListKey(items.Item(i));
        during();
    }
    void newData() override
    {
        ++newDataCalls;
        during();
    }
    QList<QList<qint64>> inputs; // the ids of each InputData call
    int newDataCalls = 0;
    std::function<void()> during = [] {}; // runs inside the call, as the operator's work would
};

class MainWindowTest : public DemoDatabaseTest
{
protected:
    void SetUp() override
    {
        DemoDatabaseTest::SetUp();
        fillDatabase();
        auto recording = std::make_unique<RecordingCalls>();
        calls = recording.get();
        window = std::make_unique<MainWindow>(connection, path, std::move(recording));
        ASSERT_TRUE(tolvinpt::test::showActive(window.get()));
        ASSERT_TRUE(view = window->findChild<QTableView*>(u"deliveryList"_s));
        // The list is counted once it has been painted.
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return qobject_cast<DeliveryListModel*>(view->model())->counted(); }));
    }
    void TearDown() override
    {
        window.reset();
        DemoDatabaseTest::TearDown();
    }
    virtual void fillDatabase() {} // before the window opens

    int rows() const { return view->model()->rowCount(); }
    QVariant cell(int row, int role, int column = 0) const
    {
        return view->model()->index(row, column).data(role);
    }
    QString text(int row, int column) const { return cell(row, Qt::DisplayRole, column).toString(); }
    QComboBox* combo(const QString& name) const { return window->findChild<QComboBox*>(name); }
    qint64 idAt(int row) const { return cell(row, DeliveryListModel::IdRole).toLongLong(); }
    QPoint rowCentre(int row) const { return view->visualRect(view->model()->index(row, 1)).center(); }
    void clickRow(int row, Qt::KeyboardModifiers modifiers = {})
    {
        view->scrollTo(view->model()->index(row, 1));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, modifiers, rowCentre(row));
    }

    RecordingCalls* calls = nullptr; // owned by the window
    std::unique_ptr<MainWindow> window;
    QTableView* view = nullptr;
};

TEST_F(MainWindowTest, EnterOpensTheSelectedRecordsInListOrder)
{
    // Sort by order number, descending, with a click on the header.
    QHeaderView* header = view->horizontalHeader();
    const int x = header->sectionViewportPosition(DeliveryListModel::OrderNumber) + 10;
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
    if (header->sortIndicatorOrder() != Qt::DescendingOrder)
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
    ASSERT_EQ(header->sortIndicatorSection(), int(DeliveryListModel::OrderNumber));
    ASSERT_GT(text(0, DeliveryListModel::OrderNumber), text(20, DeliveryListModel::OrderNumber));

    // Selected bottom-up and out of order; the call gets them top to bottom.
    clickRow(7);
    clickRow(2, Qt::ControlModifier);
    clickRow(5, Qt::ControlModifier);
    QTest::keyClick(view, Qt::Key_Return);
    ASSERT_EQ(calls->inputs.size(), 1);
    EXPECT_EQ(calls->inputs[0], (QList<qint64>{idAt(2), idAt(5), idAt(7)}));
    EXPECT_EQ(window->selectedItems().Count(), 3);

    // A double click (press and release, then the double click) opens the one record under the mouse.
    clickRow(4);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, rowCentre(4));
    ASSERT_EQ(calls->inputs.size(), 2);
    EXPECT_EQ(calls->inputs[1], QList<qint64>{idAt(4)});
}

TEST_F(MainWindowTest, ListIsReadAgainAfterEachCallKeepingTheSelection)
{
    clickRow(3);
    clickRow(4, Qt::ShiftModifier);
    const qint64 first = idAt(3);
    const qint64 second = idAt(4);
    // While the form is open the operator changes the first record.
    calls->during = [&] {
        exec(u"UPDATE T_Delivery SET F00007 = 'X-CHANGED' WHERE IDData = %1"_s.arg(first));
    };
    const int before = rows();
    window->findChild<QAction*>(u"openRecords"_s)->trigger();
    EXPECT_EQ(text(3, DeliveryListModel::OrderNumber), u"X-CHANGED"_s);

    // A record added by NewData is listed, last as the list is sorted by ID.
    calls->during = [&] {
        exec(QStringLiteral(
            "INSERT INTO T_Delivery (IDCustomer, F00007, F00159) VALUES (3, 'NEW-1', 'NEW-1-01')"));
    };
    QTest::keyClick(view, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(calls->newDataCalls, 1);
    ASSERT_EQ(rows(), before + 1);
    EXPECT_EQ(text(before, DeliveryListModel::Kind), u"手入力"_s);
    EXPECT_EQ(text(before, DeliveryListModel::Currency), u"JPY"_s);

    // Another operator's work shows on refresh (F5): a record moved to the waste box leaves the list.
    exec(u"UPDATE T_Delivery SET InDustBox = true WHERE IDData = %1"_s.arg(idAt(1)));
    QTest::keyClick(view, Qt::Key_F5);
    EXPECT_EQ(rows(), before);
    const Items selected = window->selectedItems();
    ASSERT_EQ(selected.Count(), 2);
    EXPECT_EQ(QList<qint64>({idOfListKey(selected.Item(1)), idOfListKey(selected.Item(2))}),
              (QList<qint64>{first, second}));
    EXPECT_EQ(view->currentIndex().data(DeliveryListModel::IdRole).toLongLong(), second);
}

TEST_F(MainWindowTest, ErrorOutOfACallIsShownWithItsNumber)
{
    ScriptedMessages messages;
    calls->during = [] { throw Error(u"database is locked"_s, 5); };
    clickRow(0);
    QTest::keyClick(view, Qt::Key_Enter);
    window->findChild<QAction*>(u"newRecord"_s)->trigger();
    messages.expectShown({tolvinpt::test::okMessage(u"database is locked (5)", u"開く..."),
                          tolvinpt::test::okMessage(u"database is locked (5)", u"新規入力...")});
}

// 100,000 records made by one statement: record i (its IDData) has customer 1 + i % 7, kind i % 9 (in the
// order of the kind filter, 6 to 8 hand input: empty, Null and a lower-case code), order number "PO" and
// the six digits of i * 7919 % 100000 (each number once), and lies in the waste box when i % 37 is 0.
constexpr int kRecords = 100000;

bool live(int i)
{
    return i % 37 != 0;
}

int orderNumber(int i)
{
    return int(qint64(i) * 7919 % kRecords);
}

class LargeListTest : public MainWindowTest
{
protected:
    void fillDatabase() override
    {
        exec(u"DELETE FROM T_Delivery"_s);
        exec(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < "_s +
             QString::number(kRecords) +
             QStringLiteral(
                 ") INSERT INTO T_Delivery (IDData, IDCustomer, F00002, F00030, F00007, InDustBox) "
                 "SELECT i, 1 + i % 7, CASE i % 9 WHEN 0 THEN '0502' WHEN 1 THEN '0502' WHEN 2 THEN "
                 "'0703' WHEN 3 THEN '9999' WHEN 4 THEN '9990' WHEN 5 THEN '999G' WHEN 6 THEN '' "
                 "WHEN 8 THEN '999g' END, CASE i % 9 WHEN 0 THEN '2' WHEN 1 THEN '1' END, "
                 "'PO' || substr(CAST(1000000 + i * 7919 % ") +
             QString::number(kRecords) + u" AS text), 2), i % 37 = 0 FROM n"_s);
        // The server's own numbering goes on after the ids given here.
        if (isServer)
            exec(u"SELECT setval(pg_get_serial_sequence('t_delivery', 'iddata'), %1)"_s.arg(kRecords));
    }
    // The live records in IDData order, or in order-number order.
    static QList<qint64> liveIds(bool byOrderNumber = false)
    {
        QList<qint64> ids;
        for (int i = 1; i <= kRecords; ++i)
            if (live(i))
                ids << i;
        if (byOrderNumber)
            std::sort(ids.begin(), ids.end(),
                      [](qint64 a, qint64 b) { return orderNumber(a) < orderNumber(b); });
        return ids;
    }
    void sortBy(int column, Qt::SortOrder order)
    {
        view->horizontalHeader()->setSortIndicator(column, order);
    }
    QModelIndex at(int row) const { return view->model()->index(row, 0); }
};

// The waste box is hidden until asked for; a deleted customer (6) can be chosen; a kind by its codes.
TEST_F(LargeListTest, CountsFiltersAndSortsInTheDatabase)
{
    int liveCount = 0, customer6Kind2G = 0, awaiting = 0, handInput = 0;
    for (int i = 1; i <= kRecords; ++i) {
        liveCount += live(i);
        customer6Kind2G += live(i) && 1 + i % 7 == 6 && i % 9 == 5;
        awaiting += live(i) && i % 9 == 0;
        handInput += live(i) && i % 9 >= 6;
    }
    EXPECT_EQ(rows(), liveCount);
    EXPECT_EQ(window->statusBar()->findChild<QLabel*>()->text(),
              u"%1 件 / 全 %2 件"_s.arg(liveCount).arg(kRecords));
    auto* showWasteBox = window->findChild<QCheckBox*>(u"showWasteBox"_s);
    QTest::mouseClick(showWasteBox, Qt::LeftButton, {}, QPoint(4, showWasteBox->height() / 2));
    EXPECT_EQ(rows(), kRecords);
    showWasteBox->setChecked(false);
    const auto filter = [&](int customer, const QString& kind) {
        combo(u"customerFilter"_s)
            ->setCurrentIndex(customer ? combo(u"customerFilter"_s)->findData(customer) : 0);
        combo(u"kindFilter"_s)->setCurrentIndex(kind.isEmpty() ? 0 : combo(u"kindFilter"_s)->findText(kind));
        return rows();
    };
    EXPECT_EQ(filter(6, u"納品情報(2G)"_s), customer6Kind2G);
    EXPECT_EQ(filter(0, u"注文情報 納入指示待ち"_s), awaiting);
    EXPECT_EQ(filter(0, u"手入力"_s), handInput);
    filter(0, {});

    // Descending order numbers: at the top, across a page boundary, in the middle, at the bottom.
    const QList<qint64> ascending = liveIds(true);
    const int n = liveCount;
    sortBy(DeliveryListModel::OrderNumber, Qt::DescendingOrder);
    for (int row : {0, 127, 128, 129, n / 2, n / 2 + 1, n - 129, n - 1})
        EXPECT_EQ(idAt(row), ascending[n - 1 - row]) << row;

    // Every column sorts both ways through its own index.
    ScriptedMessages messages;
    for (int column = 0; column < ListColumnCount; ++column)
        for (Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
            sortBy(column, order);
            EXPECT_EQ(rows(), n) << column;
            EXPECT_FALSE(idAt(n - 1) == 0) << column;
        }
    EXPECT_TRUE(messages.shown.isEmpty());
    sortBy(DeliveryListModel::Kind, Qt::AscendingOrder);
    EXPECT_EQ(cell(0, DeliveryListModel::KindRole), u"注文情報 納入指示待ち"_s);
    EXPECT_EQ(cell(n - 1, DeliveryListModel::KindRole), u"手入力"_s);

    // No record has a ship date: one value, so the rows follow IDData, across pages and reversed.
    sortBy(DeliveryListModel::ShipDate, Qt::AscendingOrder);
    const QList<qint64> byId = liveIds();
    view->selectionModel()->select(QItemSelection(at(126), at(129)),
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    EXPECT_EQ(window->selectedItems().Count(), 4);
    EXPECT_EQ(QList<qint64>({idAt(127), idAt(128), idAt(n - 1)}),
              QList<qint64>({byId[127], byId[128], byId[n - 1]}));
    sortBy(DeliveryListModel::ShipDate, Qt::DescendingOrder);
    EXPECT_EQ(idAt(0), byId[n - 1]);
    EXPECT_EQ(rowSpans(view->selectionModel()->selection()), (QList<RowSpan>{{n - 130, n - 127}}));
}

// The operator opens 10,000 records and one more and, in the form, changes one so that it sorts to the
// top and splits another (a new record right after it).
TEST_F(LargeListTest, CallsRecordsAreSelectedAgainAsRangesAfterTheCall)
{
    const QList<qint64> ascending = liveIds(true);
    sortBy(DeliveryListModel::OrderNumber, Qt::AscendingOrder);
    QItemSelectionModel* selection = view->selectionModel();
    selection->select(QItemSelection(at(1000), at(10999)),
                      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    selection->select(at(20000), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    selection->setCurrentIndex(at(5000), QItemSelectionModel::NoUpdate);
    view->scrollTo(at(5000));
    const int offset = 5000 - view->rowAt(0);
    calls->during = [&] {
        exec(u"UPDATE T_Delivery SET F00007 = 'PO000000A' WHERE IDData = %1"_s.arg(ascending[1500]));
        exec(u"INSERT INTO T_Delivery (IDCustomer, F00007) VALUES (1, 'PO%1X')"_s.arg(
            orderNumber(ascending[3000]), 6, 10, QChar(u'0')));
    };
    window->findChild<QAction*>(u"openRecords"_s)->trigger();

    ASSERT_EQ(calls->inputs.size(), 1);
    EXPECT_EQ(calls->inputs[0], ascending.mid(1000, 10000) + QList<qint64>{ascending[20000]});
    EXPECT_EQ(rows(), ascending.size() + 1);
    EXPECT_EQ(rowSpans(selection->selection()),
              (QList<RowSpan>{{1, 1}, {1001, 3000}, {3002, 11000}, {20001, 20001}}));
    EXPECT_EQ(idAt(1), ascending[1500]);
    EXPECT_EQ(view->currentIndex().row(), 5001);
    EXPECT_EQ(idAt(5001), ascending[5000]);
    EXPECT_EQ(5001 - view->rowAt(0), offset);
}

} // namespace
} // namespace tolvinpt::host::test
