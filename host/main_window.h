#pragma once

#include "host/entry_calls.h"
#include "host/list_query.h"

#include <tolvinpt/items.h>

#include <QMainWindow>

class QAction;
class QCheckBox;
class QComboBox;
class QLabel;
class QTableView;

namespace tolvinpt {
class Error;
}

namespace tolvinpt::host {

class DeliveryListModel;

// The host's window: the delivery records of the database, filtered by customer, kind and waste box,
// and the two ways into the entry form. Widgets carry object names for tests: "customerFilter",
// "kindFilter", "showWasteBox", "deliveryList", and the actions "openRecords" and "newRecord".
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow(QString connectionName, QString databasePath, std::unique_ptr<EntryCalls> calls,
               QWidget* parent = nullptr);
    ~MainWindow() override;

    // The IDData of the selected records in the order in which the list shows them.
    Items selectedItems() const;
    // Reads the list and the customer filter anew, keeping the selection where the records remain.
    void refresh();

protected:
    // The list's first paint: the list is counted once it is over.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // The selection by record, to be found again once the list has changed under it.
    struct KeptSelection
    {
        bool all = false;
        QList<qint64> ids;
        qint64 currentId = 0;
        int currentOffset = -1; // the current row's distance from the top of the view, -1 when out of view
    };

    void buildFilterBar(QWidget* bar);
    void buildList(QWidget* parent);
    void buildActions();
    void fitColumns();
    bool fillCustomerFilter();
    ListFilter chosenFilter() const;
    // Shows the list anew, keeping the selection; false (and the list as it was) when it cannot be read.
    bool showList(const ListQuery& query);
    void openSelected();
    void enterNew();
    void afterCall(const QList<qint64>& ids, const KeptSelection& kept);
    KeptSelection keptSelection(bool sameRecords, const QList<qint64>* selectedIds = nullptr) const;
    void restoreSelection(const KeptSelection& kept);
    void reportListError(const Error& e);
    void updateStatus();
    void countList();

    QString m_connectionName;
    std::unique_ptr<EntryCalls> m_calls;
    DeliveryListModel* m_model = nullptr;
    QTableView* m_view = nullptr;
    QComboBox* m_customerFilter = nullptr;
    QComboBox* m_kindFilter = nullptr;
    QCheckBox* m_showWasteBox = nullptr;
    QAction* m_open = nullptr;
    QAction* m_new = nullptr;
    QLabel* m_count = nullptr;
};

} // namespace tolvinpt::host
