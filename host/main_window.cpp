#include "host/main_window.h"

#include "host/delivery_filter.h"
#include "host/delivery_list_model.h"
#include "host/list_selection.h"
#include "host/record_kind.h"
#include "host/sql_script.h"

#include "platform/messages.h"

#include <tolvinpt/error.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QStatusBar>
#include <QStyle>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>

namespace tolvinpt::host {
namespace {

// Long item names are cut rather than push the dates out of the window.
constexpr int kMaxColumnPixels = 320;

void reportError(const Error& e, const QString& title)
{
    showExclamation(QStringLiteral("%1 (%2)").arg(e.description()).arg(e.number()), title);
}

} // namespace

MainWindow::MainWindow(QString connectionName, QString databasePath, std::unique_ptr<EntryCalls> calls,
                       QWidget* parent)
    : QMainWindow(parent), m_connectionName(std::move(connectionName)), m_calls(std::move(calls)),
      m_model(new DeliveryListModel(this)), m_filter(new DeliveryFilter(this))
{
    setWindowTitle(QStringLiteral("納品データ一覧 - %1").arg(QDir::toNativeSeparators(databasePath)));

    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    auto* bar = new QWidget(central);
    buildFilterBar(bar);
    layout->addWidget(bar);

    m_filter->setSourceModel(m_model);
    m_view = new QTableView(central);
    m_view->setObjectName(QStringLiteral("deliveryList"));
    m_view->setModel(m_filter);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setSortingEnabled(true);
    m_view->sortByColumn(DeliveryListModel::Id, Qt::AscendingOrder);
    m_view->setAlternatingRowColors(true);
    m_view->setWordWrap(false);
    m_view->verticalHeader()->hide();
    m_view->verticalHeader()->setDefaultSectionSize(m_view->fontMetrics().height() + 8);
    m_view->horizontalHeader()->setHighlightSections(false);
    m_view->horizontalHeader()->setStretchLastSection(true);
    layout->addWidget(m_view);
    setCentralWidget(central);

    buildActions();
    m_count = new QLabel(this);
    statusBar()->addPermanentWidget(m_count);
    connect(m_view, &QTableView::doubleClicked, m_open, &QAction::trigger);
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { m_open->setEnabled(m_view->selectionModel()->hasSelection()); });
    connect(m_filter, &QAbstractItemModel::modelReset, this, &MainWindow::updateStatus);
    connect(m_filter, &QAbstractItemModel::rowsInserted, this, &MainWindow::updateStatus);
    connect(m_filter, &QAbstractItemModel::rowsRemoved, this, &MainWindow::updateStatus);

    refresh();
    fitColumns();
    if (m_filter->rowCount() > 0)
        m_view->selectRow(0);
    resize(1440, 760);
}

MainWindow::~MainWindow() = default;

void MainWindow::fitColumns()
{
    m_view->resizeColumnsToContents();
    for (int column = 0; column < DeliveryListModel::ColumnCount; ++column)
        m_view->setColumnWidth(column, std::min(m_view->columnWidth(column) + 8, kMaxColumnPixels));
}

void MainWindow::buildFilterBar(QWidget* bar)
{
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    m_customerFilter = new QComboBox(bar);
    m_customerFilter->setObjectName(QStringLiteral("customerFilter"));
    m_customerFilter->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_kindFilter = new QComboBox(bar);
    m_kindFilter->setObjectName(QStringLiteral("kindFilter"));
    m_kindFilter->addItem(QStringLiteral("すべての種別"));
    m_kindFilter->addItems(kindCaptions());
    m_showWasteBox = new QCheckBox(QStringLiteral("ごみ箱のデータも表示"), bar);
    m_showWasteBox->setObjectName(QStringLiteral("showWasteBox"));

    auto* customerLabel = new QLabel(QStringLiteral("得意先(&C):"), bar);
    customerLabel->setBuddy(m_customerFilter);
    auto* kindLabel = new QLabel(QStringLiteral("種別(&K):"), bar);
    kindLabel->setBuddy(m_kindFilter);
    row->addWidget(customerLabel);
    row->addWidget(m_customerFilter);
    row->addSpacing(16);
    row->addWidget(kindLabel);
    row->addWidget(m_kindFilter);
    row->addSpacing(16);
    row->addWidget(m_showWasteBox);
    row->addStretch();

    connect(m_customerFilter, &QComboBox::currentIndexChanged, this, &MainWindow::applyFilter);
    connect(m_kindFilter, &QComboBox::currentIndexChanged, this, &MainWindow::applyFilter);
    connect(m_showWasteBox, &QCheckBox::toggled, this, &MainWindow::applyFilter);
}

void MainWindow::buildActions()
{
    m_open = new QAction(style()->standardIcon(QStyle::SP_DialogOpenButton), QStringLiteral("開く"), this);
    m_open->setObjectName(QStringLiteral("openRecords"));
    m_open->setShortcuts({QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)});
    m_open->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    m_open->setToolTip(QStringLiteral("選択したデータを入力画面で開きます (Enter)"));
    m_view->addAction(m_open);
    connect(m_open, &QAction::triggered, this, &MainWindow::openSelected);

    m_new = new QAction(style()->standardIcon(QStyle::SP_FileIcon), QStringLiteral("新規入力"), this);
    m_new->setObjectName(QStringLiteral("newRecord"));
    m_new->setShortcut(QKeySequence::New);
    m_new->setToolTip(QStringLiteral("新しい納品データを手入力します (Ctrl+N)"));
    connect(m_new, &QAction::triggered, this, &MainWindow::enterNew);

    auto* refreshAction =
        new QAction(style()->standardIcon(QStyle::SP_BrowserReload), QStringLiteral("最新の情報に更新"), this);
    refreshAction->setShortcut(QKeySequence::Refresh);
    connect(refreshAction, &QAction::triggered, this, &MainWindow::refresh);

    QToolBar* tools = addToolBar(QStringLiteral("操作"));
    tools->setObjectName(QStringLiteral("tools"));
    tools->setMovable(false);
    tools->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    tools->addAction(m_open);
    tools->addAction(m_new);
    tools->addSeparator();
    tools->addAction(refreshAction);
}

void MainWindow::fillCustomerFilter()
{
    const QVariant chosen = m_customerFilter->currentData();
    QSignalBlocker block(m_customerFilter);
    m_customerFilter->clear();
    m_customerFilter->addItem(QStringLiteral("すべての得意先"));
    QSqlQuery q =
        execQuery(QSqlDatabase::database(m_connectionName, false),
                  QStringLiteral("SELECT IDCustomer, Name, Deleted FROM T_Customer ORDER BY IDCustomer"));
    while (q.next()) {
        const bool deleted = q.value(2).toLongLong() != 0;
        m_customerFilter->addItem(deleted ? QStringLiteral("%1 (削除済み)").arg(q.value(1).toString())
                                          : q.value(1).toString(),
                                  q.value(0).toLongLong());
    }
    m_customerFilter->setCurrentIndex(std::max(0, m_customerFilter->findData(chosen)));
}

void MainWindow::applyFilter()
{
    const QVariant customer = m_customerFilter->currentData();
    m_filter->setCustomer(customer.isValid() ? std::optional<qint64>(customer.toLongLong()) : std::nullopt);
    m_filter->setKind(m_kindFilter->currentIndex() > 0 ? m_kindFilter->currentText() : QString());
    m_filter->setShowWasteBox(m_showWasteBox->isChecked());
    updateStatus();
}

Items MainWindow::selectedItems() const
{
    return itemsInListOrder(*m_view->selectionModel());
}

void MainWindow::openSelected()
{
    Items items = selectedItems();
    if (items.Count() == 0)
        return;
    try {
        m_calls->inputData(items);
    } catch (const Error& e) {
        reportError(e, QStringLiteral("開く..."));
    }
    refresh();
}

void MainWindow::enterNew()
{
    try {
        m_calls->newData();
    } catch (const Error& e) {
        reportError(e, QStringLiteral("新規入力..."));
    }
    refresh();
}

void MainWindow::refresh()
{
    QSet<qint64> selected;
    for (const QModelIndex& row : m_view->selectionModel()->selectedRows())
        selected.insert(row.data(DeliveryListModel::IdRole).toLongLong());
    const qint64 currentId = m_view->currentIndex().data(DeliveryListModel::IdRole).toLongLong();
    try {
        fillCustomerFilter();
        m_model->reload(QSqlDatabase::database(m_connectionName, false));
    } catch (const Error& e) {
        reportError(e, QStringLiteral("一覧..."));
    }
    applyFilter();
    reselect(selected, currentId);
}

void MainWindow::reselect(const QSet<qint64>& ids, qint64 currentId)
{
    QItemSelection selection;
    QModelIndex current;
    for (int row = 0; row < m_filter->rowCount(); ++row) {
        const QModelIndex index = m_filter->index(row, 0);
        const qint64 id = index.data(DeliveryListModel::IdRole).toLongLong();
        if (ids.contains(id))
            selection.select(index, m_filter->index(row, DeliveryListModel::ColumnCount - 1));
        if (id == currentId)
            current = index;
    }
    QItemSelectionModel* model = m_view->selectionModel();
    if (current.isValid())
        model->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    model->select(selection, QItemSelectionModel::ClearAndSelect);
    m_open->setEnabled(model->hasSelection());
    if (current.isValid())
        m_view->scrollTo(current);
}

void MainWindow::updateStatus()
{
    m_count->setText(QStringLiteral("%1 件 / 全 %2 件").arg(m_filter->rowCount()).arg(m_model->rowCount()));
}

} // namespace tolvinpt::host
