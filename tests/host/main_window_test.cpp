// The list window on a real demo database, driven through its widgets offscreen.
#include "tests/host/host_fixture.h"
#include "tests/support/scripted_messages.h"

#include "host/delivery_list_model.h"
#include "host/main_window.h"

#include <tolvinpt/error.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QTableView>
#include <QTest>

#include <functional>

namespace tolvinpt::host::test {
namespace {

using tolvinpt::test::ScriptedMessages;

// Stands in for the entry form: records each call and runs what the test gives it.
struct RecordingCalls final : public EntryCalls
{
    void inputData(Items& items) override
    {
        inputs.append(QList<qint64>());
        for (int i = 1; i <= items.Count(); ++i)
            inputs.last() << items.Item(i).toLongLong();
        if (during)
            during();
    }
    void newData() override
    {
        ++newDataCalls;
        if (during)
            during();
    }
    QList<QList<qint64>> inputs; // the ids of each InputData call
    int newDataCalls = 0;
    std::function<void()> during; // runs inside the call, as the operator's work would
};

class MainWindowTest : public DemoDatabaseTest
{
protected:
    void SetUp() override
    {
        DemoDatabaseTest::SetUp();
        auto recording = std::make_unique<RecordingCalls>();
        calls = recording.get();
        window = std::make_unique<MainWindow>(connection, path, std::move(recording));
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        view = window->findChild<QTableView*>(QStringLiteral("deliveryList"));
        ASSERT_TRUE(view);
    }
    void TearDown() override
    {
        window.reset();
        DemoDatabaseTest::TearDown();
    }

    QVariant cell(int row, int role, int column = 0) const
    {
        return view->model()->index(row, column).data(role);
    }
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

TEST_F(MainWindowTest, FiltersHideTheWasteBoxAndSelectByCustomerAndKind)
{
    const QString live = QStringLiteral("SELECT COUNT(*) FROM T_Delivery WHERE InDustBox = 0");
    ASSERT_LT(count(live), 300);
    EXPECT_EQ(view->model()->rowCount(), count(live));
    for (int row = 0; row < view->model()->rowCount(); ++row)
        ASSERT_FALSE(cell(row, DeliveryListModel::WasteBoxRole).toBool()) << idAt(row);
    auto* showWasteBox = window->findChild<QCheckBox*>(QStringLiteral("showWasteBox"));
    QTest::mouseClick(showWasteBox, Qt::LeftButton, {}, QPoint(4, showWasteBox->height() / 2));
    EXPECT_EQ(view->model()->rowCount(), 300);
    showWasteBox->setChecked(false);

    auto* customers = window->findChild<QComboBox*>(QStringLiteral("customerFilter"));
    auto* kinds = window->findChild<QComboBox*>(QStringLiteral("kindFilter"));
    customers->setCurrentIndex(customers->findData(6)); // a deleted customer
    EXPECT_EQ(view->model()->rowCount(), count(live + QStringLiteral(" AND IDCustomer = 6")));
    customers->setCurrentIndex(0);
    kinds->setCurrentIndex(kinds->findText(QStringLiteral("手入力")));
    EXPECT_EQ(
        view->model()->rowCount(),
        count(live + QStringLiteral(" AND (F00002 IS NULL OR F00002 NOT IN ('0502', '0703', '9999', '9990', "
                                    "'999G'))")));
    kinds->setCurrentIndex(kinds->findText(QStringLiteral("注文情報 納入指示待ち")));
    EXPECT_EQ(view->model()->rowCount(),
              count(live + QStringLiteral(" AND F00002 = '0502' AND F00030 = '2'")));
}

TEST_F(MainWindowTest, EnterOpensTheSelectedRecordsInListOrder)
{
    // Sort by order number, descending, with a click on the header.
    QHeaderView* header = view->horizontalHeader();
    const int x = header->sectionViewportPosition(DeliveryListModel::OrderNumber) + 10;
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
    if (header->sortIndicatorOrder() != Qt::DescendingOrder)
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
    ASSERT_EQ(header->sortIndicatorSection(), int(DeliveryListModel::OrderNumber));
    ASSERT_GT(cell(0, Qt::DisplayRole, DeliveryListModel::OrderNumber).toString(),
              cell(20, Qt::DisplayRole, DeliveryListModel::OrderNumber).toString());

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
        exec(QStringLiteral("UPDATE T_Delivery SET F00007 = 'X-CHANGED' WHERE IDData = %1").arg(first));
    };
    const int before = view->model()->rowCount();
    window->findChild<QAction*>(QStringLiteral("openRecords"))->trigger();
    EXPECT_EQ(cell(3, Qt::DisplayRole, DeliveryListModel::OrderNumber).toString(), QStringLiteral("X-CHANGED"));

    // A record added by NewData is listed, last as the list is sorted by ID.
    calls->during = [&] {
        exec(QStringLiteral(
            "INSERT INTO T_Delivery (IDCustomer, F00007, F00159) VALUES (3, 'NEW-1', 'NEW-1-01')"));
    };
    QTest::keyClick(view, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(calls->newDataCalls, 1);
    ASSERT_EQ(view->model()->rowCount(), before + 1);
    EXPECT_EQ(cell(before, Qt::DisplayRole, DeliveryListModel::Kind).toString(), QStringLiteral("手入力"));
    EXPECT_EQ(cell(before, Qt::DisplayRole, DeliveryListModel::Currency).toString(), QStringLiteral("JPY"));

    // Another operator's work shows on refresh (F5): a record moved to the waste box leaves the list.
    exec(QStringLiteral("UPDATE T_Delivery SET InDustBox = 1 WHERE IDData = %1").arg(idAt(1)));
    QTest::keyClick(view, Qt::Key_F5);
    EXPECT_EQ(view->model()->rowCount(), before);
    const Items selected = window->selectedItems();
    ASSERT_EQ(selected.Count(), 2);
    EXPECT_EQ(QList<qint64>({selected.Item(1).toLongLong(), selected.Item(2).toLongLong()}),
              (QList<qint64>{first, second}));
    EXPECT_EQ(view->currentIndex().data(DeliveryListModel::IdRole).toLongLong(), second);
}

TEST_F(MainWindowTest, ErrorOutOfACallIsShownWithItsNumber)
{
    ScriptedMessages messages;
    calls->during = [] { throw Error(QStringLiteral("database is locked"), 5); };
    clickRow(0);
    QTest::keyClick(view, Qt::Key_Enter);
    window->findChild<QAction*>(QStringLiteral("newRecord"))->trigger();
    ASSERT_EQ(messages.shown.size(), 2);
    EXPECT_EQ(messages.shown[0].text, QStringLiteral("database is locked (5)"));
    EXPECT_EQ(messages.shown[0].title, QStringLiteral("開く..."));
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Warning);
    EXPECT_EQ(messages.shown[1].title, QStringLiteral("新規入力..."));
}

} // namespace
} // namespace tolvinpt::host::test
