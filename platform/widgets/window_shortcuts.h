#pragma once

class QWidget;

namespace tolvinpt {

// The window's commands before the keys its fields claim for themselves. With the X11 key bindings a
// text field takes Ctrl+E (end of line) and others, so a menu command on such a key would never run
// while a field has the focus. Call once the window's widgets and actions exist: a key with Ctrl, Alt or
// Meta that a shown, enabled action of the window has as its shortcut goes to that action.
void putWindowShortcutsFirst(QWidget* window);

} // namespace tolvinpt
