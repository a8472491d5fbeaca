#pragma once

#include "forms/control_row.h"

#include <QToolBar>

#include <span>
#include <vector>

class QToolButton;

namespace tolvinpt {

// A toolbar whose buttons are found by key (each button's objectName) or by 1-based position;
// separators take a position too. Buttons show icons only and never take the focus.
class KeyedToolBar final : public QToolBar
{
    Q_OBJECT

public:
    // Icons come from the resources under ":/tolvinpt/icons/<image key>".
    KeyedToolBar(const QString& name, std::span<const ToolButtonSpec> buttons, QWidget* parent);

    // Number of positions, separators included.
    int count() const { return static_cast<int>(m_positions.size()); }
    // Null for an unknown key.
    QToolButton* button(const QString& key) const;
    // Null for a separator or a position out of range.
    QToolButton* buttonAt(int position) const;
    // Empty for a separator.
    QString keyAt(int position) const;
    void setButtonEnabled(int position, bool enabled);
    bool isButtonEnabled(int position) const;
    void setButtonEnabled(const QString& key, bool enabled);

signals:
    // The button itself was pressed (not an entry of its drop-down menu).
    void buttonClicked(const QString& key);

private:
    QAction* actionAt(int position) const;
    std::vector<QAction*> m_positions;
};

} // namespace tolvinpt
