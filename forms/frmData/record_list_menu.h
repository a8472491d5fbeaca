#pragma once

#include <QHash>
#include <QMenu>

namespace tolvinpt {

// The record list of the entry form: the drop-down of the toolbar button "一覧選択". Entry n belongs
// to the n-th record of the list the form runs on; it keeps its key (a ListKey such as "1234Key") and
// shows the record's delivery key number. Entries stay in the order in which they were added.
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

signals:
    // The operator chose entry `index` (1-based).
    void entryChosen(int index);

private:
    QAction* entryAt(int index) const;

    // Entries by case-folded key, so that a list of thousands is filled in linear time.
    QHash<QString, QAction*> m_entries;
};

} // namespace tolvinpt
