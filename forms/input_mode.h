#pragma once

#include "forms/control_row.h"

class QWidget;

namespace tolvinpt {

// Fixes the input method of a text box or editable combo: Off asks for Latin input without
// prediction, Hiragana leaves the input method free in its native mode, Disabled switches it off for
// good (it stays off when the field is locked or opened again).
void applyInputMode(QWidget* field, InputMode mode);

} // namespace tolvinpt
