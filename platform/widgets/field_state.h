#pragma once

// Lock, tab-stop and colour of a field: the one place that decides how "locked", "grey" and
// "highlight" look and behave on this toolkit.

class QWidget;

namespace tolvinpt {

// Desktop colours by role, resolved from the current palette when applied.
enum class SystemColour {
    WindowBackground, // background of an open field
    ButtonFace,       // background of a locked (grey) field and of the form
    Highlight,        // caption of a label whose field is open
    WindowText,       // caption of a label whose field is locked
};

// A locked field keeps its focus and selection but refuses every edit: a text box becomes read-only,
// a combo box ignores keys, wheel and clicks that would change it. Applies to QLineEdit and QComboBox.
void setLocked(QWidget* field, bool locked);
bool isLocked(const QWidget* field);

// Whether Tab and Shift+Tab reach the field; the mouse always can.
void setTabStop(QWidget* field, bool tabStop);
bool isTabStop(const QWidget* field);

void setBackground(QWidget* field, SystemColour colour);
// Text colour of a label's caption (or of a frame's title).
void setCaptionColour(QWidget* label, SystemColour colour);

// The design state "grey": locked, button-face background, skipped by Tab.
void setGrey(QWidget* field);

} // namespace tolvinpt
