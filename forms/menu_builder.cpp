#include "forms/menu_builder.h"

#include <QMenu>
#include <QMenuBar>

namespace tolvinpt {

QHash<QString, QAction*> buildMenus(QMenuBar* bar, std::span<const MenuSpec> menus)
{
    QHash<QString, QAction*> actions;
    for (const auto& row : menus) {
        const QString name = row.name.toString();
        QMenu* menu = bar->addMenu(row.caption.toString());
        menu->setObjectName(name);
        menu->setAttribute(Qt::WA_WindowPropagation); // the form's font
        menu->menuAction()->setObjectName(name);
        actions.insert(name, menu->menuAction());
        for (const auto& item : row.items) {
            QAction* action =
                item.caption == u"-" ? menu->addSeparator() : menu->addAction(item.caption.toString());
            action->setObjectName(item.name.toString());
            if (!item.shortcut.isEmpty())
                action->setShortcut(QKeySequence(item.shortcut.toString(), QKeySequence::PortableText));
            actions.insert(action->objectName(), action);
        }
    }
    return actions;
}

} // namespace tolvinpt
