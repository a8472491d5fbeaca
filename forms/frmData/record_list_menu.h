#pragma once

#include <QHash>
#include <QMenu>

#include <vector>

class QListView;
class QWidgetAction;

namespace tolvinpt {

class RecordListModel;

// The record list of the entry form: the drop-down of the toolbar button "一覧選択". Entry n belongs
// to the n-th record of the list the form runs on; it keeps its key (a ListKey such as "1234Key") and
// shows the record's delivery key number. Entries stay in the order in which they were added.
//
// The entries are a list model shown by a list view inside the menu, not an action each: QMenu scans
// its actions on every add, which made a list of 40,000 quadratic, and a view scrolls a long list. In
// the open list the arrows, Page Up/Down, Home/End and the first characters of a key number move, Enter
// or a click chooses, Escape closes.
class RecordListMenu final : public QMenu
{
    Q_OBJECT

public:
    explicit RecordListMenu(QWidget* parent);

    // Appends an entry. Keys are unique regardless of case: a key already present is refused (false).
    bool addEntry(const QString& key, const QString& text);
    int count() const;
    // 1-based; empty text out of range.
    QString keyAt(int index) const;
    QString textAt(int index) const;
    // 1-based index of the entry with `key` (case-insensitive); 0 when there is none.
    int indexOfKey(const QString& key) const;
    // Shows `text` on the entry with `key`; false when there is none.
    bool setEntryText(const QString& key, const QString& text);

    // The list the operator chooses from while the menu is open.
    QListView* view() const { return m_view; }

signals:
    // The operator chose entry `index` (1-based).
    void entryChosen(int index);

private:
    void fitView();
    void choose(int row);

    RecordListModel* m_model;
    QListView* m_view;
    QWidgetAction* m_action;
    bool m_sizeStale = true;
};

} // namespace tolvinpt
