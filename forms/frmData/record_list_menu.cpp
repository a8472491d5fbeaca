#include "forms/frmData/record_list_menu.h"

#include "platform/widgets/guarded.h"

#include <QAbstractListModel>
#include <QActionEvent>
#include <QApplication>
#include <QListView>
#include <QScrollBar>
#include <QWidgetAction>

#include <algorithm>

namespace tolvinpt {

// The entries in insertion order, found by case-folded key in constant time.
class RecordListModel final : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    struct Entry
    {
        QString key;
        QString text;
    };

    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (!index.isValid() || role != Qt::DisplayRole)
            return {};
        return m_entries[static_cast<std::size_t>(index.row())].text;
    }

    bool append(const QString& key, const QString& text)
    {
        const int row = rowCount();
        const QString folded = key.toCaseFolded();
        if (m_rows.contains(folded))
            return false;
        m_rows.insert(folded, row);
        beginInsertRows({}, row, row);
        m_entries.push_back({key, text});
        endInsertRows();
        return true;
    }
    // 0-based; null out of range.
    const Entry* at(int row) const
    {
        return row >= 0 && row < rowCount() ? &m_entries[static_cast<std::size_t>(row)] : nullptr;
    }
    // 0-based row of `key`; -1 when there is none.
    int rowOf(const QString& key) const { return m_rows.value(key.toCaseFolded(), -1); }
    void setText(int row, const QString& text)
    {
        m_entries[static_cast<std::size_t>(row)].text = text;
        emit dataChanged(index(row), index(row), {Qt::DisplayRole});
    }

private:
    std::vector<Entry> m_entries;
    QHash<QString, int> m_rows;
};

namespace {

constexpr int VisibleRows = 20;

} // namespace

RecordListMenu::RecordListMenu(QWidget* parent)
    : QMenu(parent), m_model(new RecordListModel(this)), m_view(new QListView(this)),
      m_action(new QWidgetAction(this))
{
    setAttribute(Qt::WA_WindowPropagation);
    m_view->setObjectName(QStringLiteral("lstRecordList"));
    m_view->setModel(m_model);
    m_view->setUniformItemSizes(true);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_view->setFrameShape(QFrame::NoFrame);
    m_action->setDefaultWidget(m_view);
    addAction(m_action);

    connect(this, &QMenu::aboutToShow, this, guarded(this, &RecordListMenu::fitView));
    // Enter emits activated, a click clicked (and, by the style, activated too): the first one chooses.
    const auto chosen = [this](const QModelIndex& index) { choose(index.row()); };
    connect(m_view, &QListView::activated, this, guarded(chosen));
    connect(m_view, &QListView::clicked, this, guarded(chosen));
}

bool RecordListMenu::addEntry(const QString& key, const QString& text)
{
    m_sizeStale = true;
    return m_model->append(key, text);
}

int RecordListMenu::count() const
{
    return m_model->rowCount();
}

QString RecordListMenu::keyAt(int index) const
{
    const auto* entry = m_model->at(index - 1);
    return entry ? entry->key : QString();
}

QString RecordListMenu::textAt(int index) const
{
    const auto* entry = m_model->at(index - 1);
    return entry ? entry->text : QString();
}

int RecordListMenu::indexOfKey(const QString& key) const
{
    return m_model->rowOf(key) + 1;
}

bool RecordListMenu::setEntryText(const QString& key, const QString& text)
{
    const int row = m_model->rowOf(key);
    if (row < 0)
        return false;
    m_model->setText(row, text);
    m_sizeStale = true;
    return true;
}

// Sizes the list to its widest entry and up to VisibleRows rows, and gives it the keyboard.
void RecordListMenu::fitView()
{
    if (m_sizeStale) {
        m_sizeStale = false;
        const QFontMetrics metrics(m_view->font());
        int width = 0;
        for (int row = 0; row < count(); ++row)
            width = std::max(width, metrics.horizontalAdvance(m_model->at(row)->text));
        const int rows = std::clamp(count(), 1, VisibleRows);
        const int rowHeight = count() > 0 ? m_view->sizeHintForRow(0) : metrics.height();
        const int scrollBar = count() > VisibleRows ? m_view->verticalScrollBar()->sizeHint().width() : 0;
        const int margin = 2 * m_view->style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 8;
        m_view->setFixedSize(width + scrollBar + margin, rows * rowHeight + 2 * m_view->frameWidth());
        // QMenu lays its items out again only when told that one of them changed.
        QActionEvent changed(QEvent::ActionChanged, m_action);
        QApplication::sendEvent(this, &changed);
    }
    if (!m_view->currentIndex().isValid() && count() > 0)
        m_view->setCurrentIndex(m_model->index(0));
    m_view->setFocus(Qt::PopupFocusReason);
}

void RecordListMenu::choose(int row)
{
    if (!isVisible() || row < 0 || row >= count())
        return;
    hide();
    emit entryChosen(row + 1);
}

} // namespace tolvinpt
