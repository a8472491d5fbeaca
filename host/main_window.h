#pragma once

#include "host/entry_calls.h"

#include <tolvinpt/items.h>

#include <QMainWindow>
#include <QSet>

class QAction;
class QCheckBox;
class QComboBox;
class QLabel;
class QTableView;

namespace tolvinpt::host {

class DeliveryFilter;
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

private:
    void buildFilterBar(QWidget* bar);
    void buildActions();
    void fitColumns();
    void fillCustomerFilter();
    void applyFilter();
    void openSelected();
    void enterNew();
    void reselect(const QSet<qint64>& ids, qint64 currentId);
    void updateStatus();

    QString m_connectionName;
    std::unique_ptr<EntryCalls> m_calls;
    DeliveryListModel* m_model = nullptr;
    DeliveryFilter* m_filter = nullptr;
    QTableView* m_view = nullptr;
    QComboBox* m_customerFilter = nullptr;
    QComboBox* m_kindFilter = nullptr;
    QCheckBox* m_showWasteBox = nullptr;
    QAction* m_open = nullptr;
    QAction* m_new = nullptr;
    QLabel* m_count = nullptr;
};

} // namespace tolvinpt::host
