#pragma once

#include "forms/control_row.h"

#include <QHash>

#include <span>

class QAction;
class QMenuBar;

namespace tolvinpt {

// Adds `menus` to `bar` and returns every action by name: each top-level menu's own action under the
// menu's name (the QMenu carries the name too), items and separators under theirs.
QHash<QString, QAction*> buildMenus(QMenuBar* bar, std::span<const MenuSpec> menus);

} // namespace tolvinpt
