#include "forms/frmData/record_list_menu.h"

namespace tolvinpt {
namespace {

constexpr const char* TextProperty = "entryText";

// An ampersand in a delivery key number is shown, not taken as an access key.
QString menuText(QString text)
{
    return text.replace(u'&', QStringLiteral("&&"));
}

} // namespace

RecordListMenu::RecordListMenu(QWidget* parent) : QMenu(parent)
{
    setAttribute(Qt::WA_WindowPropagation);
    connect(this, &QMenu::triggered, this, [this](QAction* action) {
        const int index = static_cast<int>(actions().indexOf(action)) + 1;
        if (index > 0)
            emit entryChosen(index);
    });
}

bool RecordListMenu::addEntry(const QString& key, const QString& text)
{
    const QString folded = key.toCaseFolded();
    if (m_entries.contains(folded))
        return false;
    QAction* action = addAction(menuText(text));
    action->setData(key);
    action->setProperty(TextProperty, text);
    m_entries.insert(folded, action);
    return true;
}

int RecordListMenu::count() const
{
    return static_cast<int>(actions().size());
}

QAction* RecordListMenu::entryAt(int index) const
{
    const auto list = actions();
    return index >= 1 && index <= list.size() ? list.at(index - 1) : nullptr;
}

QString RecordListMenu::keyAt(int index) const
{
    const QAction* action = entryAt(index);
    return action ? action->data().toString() : QString();
}

QString RecordListMenu::textAt(int index) const
{
    const QAction* action = entryAt(index);
    return action ? action->property(TextProperty).toString() : QString();
}

int RecordListMenu::indexOfKey(const QString& key) const
{
    QAction* action = m_entries.value(key.toCaseFolded());
    return action ? static_cast<int>(actions().indexOf(action)) + 1 : 0;
}

bool RecordListMenu::setEntryText(const QString& key, const QString& text)
{
    QAction* action = m_entries.value(key.toCaseFolded());
    if (!action)
        return false;
    action->setText(menuText(text));
    action->setProperty(TextProperty, text);
    return true;
}

} // namespace tolvinpt
