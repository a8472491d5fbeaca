#include "forms/keyed_toolbar.h"

#include "platform/widgets/guarded.h"
#include "platform/widgets/shared_drawing.h"

#include <QToolButton>

namespace tolvinpt {

using namespace Qt::StringLiterals;

KeyedToolBar::KeyedToolBar(const QString& name, std::span<const ToolButtonSpec> buttons, QWidget* parent)
    : QToolBar(parent)
{
    setObjectName(name);
    setMovable(false);
    setFloatable(false);
    setIconSize({16, 16});
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    setFocusPolicy(Qt::NoFocus);
    for (const auto& row : buttons) {
        if (row.key.isEmpty()) {
            m_positions.push_back(addSeparator());
            continue;
        }
        const QString key = row.key.toString();
        QAction* action = addAction(sharedIcon(u":/tolvinpt/icons/"_s + row.image.toString()), key);
        action->setToolTip(row.tooltip.toString());
        action->setData(key);
        auto* tool = static_cast<QToolButton*>(widgetForAction(action));
        tool->setObjectName(key);
        tool->setFocusPolicy(Qt::NoFocus);
        if (row.dropDown)
            tool->setPopupMode(QToolButton::MenuButtonPopup);
        connect(action, &QAction::triggered, this, guarded([this, key] { emit buttonClicked(key); }));
        m_positions.push_back(action);
    }
}

QToolButton* KeyedToolBar::button(const QString& key) const
{
    for (QAction* action : m_positions) {
        if (!action->isSeparator() && action->data().toString() == key)
            return static_cast<QToolButton*>(widgetForAction(action));
    }
    return nullptr;
}

QAction* KeyedToolBar::actionAt(int position) const
{
    if (position < 1 || position > count())
        return nullptr;
    QAction* action = m_positions[static_cast<std::size_t>(position - 1)];
    return action->isSeparator() ? nullptr : action;
}

QToolButton* KeyedToolBar::buttonAt(int position) const
{
    QAction* action = actionAt(position);
    return action ? static_cast<QToolButton*>(widgetForAction(action)) : nullptr;
}

QString KeyedToolBar::keyAt(int position) const
{
    QAction* action = actionAt(position);
    return action ? action->data().toString() : QString();
}

void KeyedToolBar::setButtonEnabled(int position, bool enabled)
{
    if (QAction* action = actionAt(position))
        action->setEnabled(enabled);
}

bool KeyedToolBar::isButtonEnabled(int position) const
{
    QAction* action = actionAt(position);
    return action && action->isEnabled();
}

void KeyedToolBar::setButtonEnabled(const QString& key, bool enabled)
{
    if (QToolButton* tool = button(key))
        tool->defaultAction()->setEnabled(enabled);
}

} // namespace tolvinpt
