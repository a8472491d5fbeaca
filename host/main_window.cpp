#include "host/main_window.h"

#include "host/delivery_list_model.h"
#include "host/list_selection.h"
#include "host/record_kind.h"

#include "platform/widgets/messages.h"

#include <tolvinpt/error.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QDir>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QStatusBar>
#include <QStyle>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>

namespace tolvinpt::host {
namespace {

// Long item names are cut rather than push the dates out of the window.
constexpr int kMaxColumnPixels = 320;
// The columns fit the first rows, read in one go, not the whole list.
constexpr int kRowsToFit = 100;

void reportError(const Error& e, const QString& title)
{
    showExclamation(QStringLiteral("%1 (%2)").arg(e.description()).arg(e.number()), title);
}

} // namespace

MainWindow::MainWindow(QString connectionName, QString databasePath, std::unique_ptr<EntryCalls> calls,
                       QWidget* parent)
    : QMainWindow(parent), m_connectionName(std::move(connectionName)), m_calls(std::move(calls)),
      m_model(new DeliveryListModel(m_connectionName, this))
{
    setWindowTitle(QStringLiteral("納品データ一覧 - %1").arg(QDir::toNativeSeparators(databasePath)));

    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    auto* bar = new QWidget(central);
    buildFilterBar(bar);
    layout->addWidget(bar);

    buildList(central);
    layout->addWidget(m_view);
    setCentralWidget(central);

    buildActions();
    m_count = new QLabel(this);
    statusBar()->addPermanentWidget(m_count);
    connect(m_view, &QTableView::doubleClicked, m_open, &QAction::trigger);
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { m_open->setEnabled(m_view->selectionModel()->hasSelection()); });
    connect(m_view->horizontalHeader(), &QHeaderView::sortIndicatorChanged, this,
            [this](int column, Qt::SortOrder order) {
                if (!showList(ListQuery(chosenFilter(), column, order))) {
                    QSignalBlocker block(m_view->horizontalHeader());
                    m_view->horizontalHeader()->setSortIndicator(m_model->query().column(),
                                                                 m_model->query().order());
                }
            });
    connect(m_model, &DeliveryListModel::readFailed, this,
            [this](const QString& description, long number) { reportListError(Error(description, number)); });

    try {
        // The first page paints before the list is counted.
        m_model->showCountingLater(ListQuery(chosenFilter(), Id, Qt::AscendingOrder));
        m_view->viewport()->installEventFilter(this);
        fillCustomerFilter();
    } catch (const Error& e) {
        reportListError(e);
    }
    updateStatus();
    fitColumns();
    if (m_model->rowCount() > 0)
        m_view->selectRow(0);
    resize(1440, 760);
}

MainWindow::~MainWindow() = default;

void MainWindow::buildList(QWidget* parent)
{
    m_view = new QTableView(parent);
    m_view->setObjectName(QStringLiteral("deliveryList"));
    m_view->setModel(m_model);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    m_view->setAlternatingRowColors(true);
    m_view->setWordWrap(false);
    m_view->verticalHeader()->hide();
    m_view->verticalHeader()->setDefaultSectionSize(m_view->fontMetrics().height() + 8);
    m_view->verticalHeader()->setResizeContentsPrecision(kRowsToFit);
    QHeaderView* header = m_view->horizontalHeader();
    header->setHighlightSections(false);
    header->setStretchLastSection(true);
    // The model sorts in the database; the header only chooses the column and the direction.
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    header->setSortIndicator(Id, Qt::AscendingOrder);
}

void MainWindow::fitColumns()
{
    m_view->resizeColumnsToContents();
    for (int column = 0; column < ListColumnCount; ++column)
        m_view->setColumnWidth(column, std::min(m_view->columnWidth(column) + 8, kMaxColumnPixels));
}

void MainWindow::buildFilterBar(QWidget* bar)
{
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    m_customerFilter = new QComboBox(bar);
    m_customerFilter->setObjectName(QStringLiteral("customerFilter"));
    m_customerFilter->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_customerFilter->addItem(QStringLiteral("すべての得意先"));
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

    const auto applyFilter = [this] {
        showList(ListQuery(chosenFilter(), m_model->query().column(), m_model->query().order()));
    };
    connect(m_customerFilter, &QComboBox::currentIndexChanged, this, applyFilter);
    connect(m_kindFilter, &QComboBox::currentIndexChanged, this, applyFilter);
    connect(m_showWasteBox, &QCheckBox::toggled, this, applyFilter);
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

    auto* refreshAction = new QAction(style()->standardIcon(QStyle::SP_BrowserReload),
                                      QStringLiteral("最新の情報に更新"), this);
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

// Fills the customer filter from the list's customers; false when the chosen customer is gone.
bool MainWindow::fillCustomerFilter()
{
    const QVariant chosen = m_customerFilter->currentData();
    QSignalBlocker block(m_customerFilter);
    m_customerFilter->clear();
    m_customerFilter->addItem(QStringLiteral("すべての得意先"));
    for (const CustomerEntry& customer : m_model->customers())
        m_customerFilter->addItem(customer.deleted ? QStringLiteral("%1 (削除済み)").arg(customer.name)
                                                   : customer.name,
                                  customer.id);
    const int index = m_customerFilter->findData(chosen);
    m_customerFilter->setCurrentIndex(std::max(0, index));
    return !chosen.isValid() || index >= 0;
}

ListFilter MainWindow::chosenFilter() const
{
    ListFilter filter;
    if (const QVariant customer = m_customerFilter->currentData(); customer.isValid())
        filter.customerId = customer.toLongLong();
    if (m_kindFilter->currentIndex() > 0)
        filter.kind = m_kindFilter->currentIndex() - 1;
    filter.showWasteBox = m_showWasteBox->isChecked();
    return filter;
}

bool MainWindow::showList(const ListQuery& query)
{
    bool shown = false;
    try {
        const KeptSelection kept = keptSelection(query.filter() == m_model->query().filter());
        m_model->show(query);
        shown = true;
        restoreSelection(kept);
    } catch (const Error& e) {
        reportListError(e);
    }
    updateStatus();
    return shown;
}

void MainWindow::refresh()
{
    try {
        const KeptSelection kept = keptSelection(false);
        m_model->show(m_model->query());
        if (!fillCustomerFilter())
            m_model->show(ListQuery(chosenFilter(), m_model->query().column(), m_model->query().order()));
        restoreSelection(kept);
    } catch (const Error& e) {
        reportListError(e);
    }
    updateStatus();
}

Items MainWindow::selectedItems() const
{
    return itemsOf(selectedIds(*m_view->selectionModel()));
}

void MainWindow::openSelected()
{
    QList<qint64> ids;
    KeptSelection kept;
    try {
        ids = selectedIds(*m_view->selectionModel());
        kept = keptSelection(false, &ids);
    } catch (const Error& e) {
        reportListError(e);
        return;
    }
    if (ids.isEmpty())
        return;
    Items items = itemsOf(ids);
    try {
        m_calls->inputData(items);
    } catch (const Error& e) {
        reportError(e, QStringLiteral("開く..."));
    }
    afterCall(ids, kept);
}

void MainWindow::enterNew()
{
    KeptSelection kept;
    try {
        kept = keptSelection(false);
    } catch (const Error& e) {
        reportListError(e);
    }
    try {
        m_calls->newData();
    } catch (const Error& e) {
        reportError(e, QStringLiteral("新規入力..."));
    }
    afterCall({}, kept);
}

// A call can change its own records and add new ones; nothing else is read again.
void MainWindow::afterCall(const QList<qint64>& ids, const KeptSelection& kept)
{
    try {
        m_model->refreshAfter(ids);
        restoreSelection(kept);
    } catch (const Error& e) {
        reportListError(e);
    }
    updateStatus();
}

// With `sameRecords` (another order of the same list) a selection of every row stays that, unread.
MainWindow::KeptSelection MainWindow::keptSelection(bool sameRecords, const QList<qint64>* selectedIds) const
{
    KeptSelection kept;
    const QItemSelectionModel* selection = m_view->selectionModel();
    const QList<RowSpan> spans = rowSpans(selection->selection());
    kept.all =
        sameRecords && m_model->rowCount() > 0 && spans == QList<RowSpan>{{0, m_model->rowCount() - 1}};
    if (!kept.all)
        kept.ids = selectedIds ? *selectedIds : m_model->idsOfRows(spans);
    const QModelIndex current = m_view->currentIndex();
    if (current.isValid()) {
        kept.currentId = m_model->idsOfRows({{current.row(), current.row()}}).value(0);
        const int top = m_view->rowAt(0);
        const int bottom = m_view->rowAt(m_view->viewport()->height() - 1);
        if (current.row() >= top && (bottom < 0 || current.row() <= bottom))
            kept.currentOffset = current.row() - top;
    }
    return kept;
}

void MainWindow::restoreSelection(const KeptSelection& kept)
{
    QList<qint64> wanted = kept.ids;
    if (kept.currentId != 0)
        wanted << kept.currentId;
    const QSet<qint64> selectedIds(kept.ids.begin(), kept.ids.end());
    QList<int> rows;
    int currentRow = -1;
    for (const auto& [row, id] : m_model->rowsOf(wanted)) {
        if (selectedIds.contains(id))
            rows << row;
        if (id == kept.currentId)
            currentRow = row;
    }
    const int count = m_model->rowCount();
    QItemSelectionModel* selection = m_view->selectionModel();
    if (currentRow >= 0)
        selection->setCurrentIndex(m_model->index(currentRow, 0), QItemSelectionModel::NoUpdate);
    selection->select(
        selectionOf(kept.all && count > 0 ? QList<RowSpan>{{0, count - 1}} : spansOfRows(rows), *m_model),
        QItemSelectionModel::ClearAndSelect);
    m_open->setEnabled(selection->hasSelection());
    // The current record stays where it was in the view, or comes into view.
    if (currentRow >= 0 && kept.currentOffset >= 0)
        m_view->verticalScrollBar()->setValue(currentRow - kept.currentOffset);
    else if (currentRow >= 0)
        m_view->scrollTo(m_model->index(currentRow, 0));
}

void MainWindow::reportListError(const Error& e)
{
    reportError(e, QStringLiteral("一覧..."));
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_view->viewport() && event->type() == QEvent::Paint) {
        m_view->viewport()->removeEventFilter(this);
        QMetaObject::invokeMethod(this, &MainWindow::countList, Qt::QueuedConnection);
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::countList()
{
    try {
        m_model->countRows();
    } catch (const Error& e) {
        reportListError(e);
    }
    updateStatus();
}

void MainWindow::updateStatus()
{
    if (!m_model->counted()) {
        m_count->clear();
        return;
    }
    m_count->setText(QStringLiteral("%1 件 / 全 %2 件").arg(m_model->rowCount()).arg(m_model->totalCount()));
}

} // namespace tolvinpt::host
