#pragma once

// One row of a form's control catalogue. Forms describe their controls as data; forms/form_builder
// creates, places and chains them, so that no widget is placed by hand.

#include <QStringView>

#include <span>

namespace tolvinpt {

enum class ControlKind {
    TextBox,       // QLineEdit
    DropDownList,  // QComboBox, pick only
    EditableCombo, // QComboBox, typed or picked
    Combo,         // QComboBox that only shows a value (always grey)
    CheckBox,
    OptionButton, // QRadioButton; options in one container exclude each other
    Button,       // QPushButton, never default
    Frame,        // QGroupBox with the caption, or a borderless QFrame without one
    Label,
    TabStrip, // QTabBar; its pages are frames laid over it; a click gives it the focus
    Line,     // decorative horizontal line
    Picture,  // plain box for pictures made at run time
};

// Input method fixed for a field: off (half-width input), hiragana (full-width input), or
// disabled (numbers, dates and short codes).
enum class InputMode { Default, Off, Hiragana, Disabled };

// Design-time state.
namespace design {
enum : unsigned {
    Hidden = 1u << 0,
    Grey = 1u << 1, // locked, button-face background, skipped by Tab: shows values only
    Locked = 1u << 2,
    Disabled = 1u << 3,
    Highlight = 1u << 4, // caption in the highlight colour
    Right = 1u << 5,     // text right-aligned
};
}

// What a control's change (text boxes) or click (choices) marks in the form's change flags.
namespace marks {
enum : unsigned {
    Changed = 1u << 0,  // bChanged
    Amount = 1u << 1,   // bChangedAmount
    Quantity = 1u << 2, // bChangedQTY
};
}

// Position and size in twips, relative to the container.
struct TwipsRect
{
    int left;
    int top;
    int width;
    int height;
};

struct ControlSpec
{
    QStringView name; // objectName; control arrays as "txtDate(1)"
    ControlKind kind;
    QStringView container; // name of the enclosing frame; empty for the form
    QStringView caption;   // caption of a label, button, check, option or frame
    QStringView tooltip;
    int maxLength; // characters; 0 for no limit
    InputMode input;
    unsigned state; // design:: flags
    TwipsRect pos;
    int tabOrder;   // position in the Tab chain; 0 for none
    unsigned marks; // marks:: flags
};

} // namespace tolvinpt

namespace tolvinpt {

// A toolbar button by key; an empty key is a separator, which still takes a position.
struct ToolButtonSpec
{
    QStringView key;
    QStringView tooltip;
    QStringView image; // image key in the icon resources
    bool dropDown;     // the button carries a menu
};

// A menu item; the caption "-" makes a separator that keeps its name.
struct MenuItemSpec
{
    QStringView name;
    QStringView caption;
    QStringView shortcut; // portable QKeySequence text
};

struct MenuSpec
{
    QStringView name;
    QStringView caption;
    std::span<const MenuItemSpec> items;
};

} // namespace tolvinpt
