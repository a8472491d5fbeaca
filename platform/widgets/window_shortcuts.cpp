#include "platform/widgets/window_shortcuts.h"

#include "platform/widgets/guarded_event_filter.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <QWidget>

namespace tolvinpt {
namespace {

// What Qt would run: the action and, for a menu item, its menu are shown and enabled.
bool wouldRun(const QAction* action)
{
    if (!action->isEnabled() || !action->isVisible())
        return false;
    const auto* menu = qobject_cast<const QMenu*>(action->parent());
    return !menu || (menu->menuAction()->isVisible() && menu->menuAction()->isEnabled());
}

class WindowShortcutsFirst final : public GuardedEventFilter
{
public:
    explicit WindowShortcutsFirst(QWidget* window) : GuardedEventFilter(window), m_window(window) {}

private:
    // A field that accepts the override would keep the key; left unaccepted, the shortcut runs.
    bool filter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::ShortcutOverride)
            return false;
        const auto* key = static_cast<QKeyEvent*>(event);
        if (!(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)))
            return false; // typing: no command of ours
        const QKeySequence pressed(key->keyCombination());
        for (const QAction* action : m_window->findChildren<QAction*>()) {
            if (action->shortcuts().contains(pressed) && wouldRun(action)) {
                event->ignore();
                return true;
            }
        }
        return false;
    }

    QWidget* m_window;
};

} // namespace

void putWindowShortcutsFirst(QWidget* window)
{
    auto* first = new WindowShortcutsFirst(window);
    for (QWidget* child : window->findChildren<QWidget*>())
        child->installEventFilter(first);
}

} // namespace tolvinpt
