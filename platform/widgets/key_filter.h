#pragma once

// KeyPress handlers for text fields: a handler sees each typed character and passes it, replaces it or
// refuses it. A refused character inserts nothing and sounds the beep.
//
// Only typed characters reach a handler. Control keys always pass untouched: keys without text
// (arrows, Home, Delete, F-keys), control characters (Backspace, Enter, Tab, Esc) and every key with
// Ctrl, Alt or Meta (copy, paste, cut, select all, undo). Input-method text and pasted text bypass the
// handler; the field's Validate handler catches them when the operator leaves.

#include <functional>

class QWidget;

namespace tolvinpt {

// Returns the character to insert for `typed`: `typed` itself to pass it, another to replace it, or 0
// to refuse it.
using KeyPress = std::function<char32_t(char32_t typed)>;

// Installs `handler` on a QLineEdit or an editable QComboBox (typing into its line edit included);
// replaces a handler installed before, null removes it.
void setKeyPress(QWidget* field, KeyPress handler);

// Ready-made handlers.
// Number keys: among the printable single-byte characters (32 to 126) only the digits and "." pass.
char32_t numberKey(char32_t typed);
// Digit keys: among the printable single-byte characters only the digits pass.
char32_t digitKey(char32_t typed);
// "a" to "z" become capitals; everything else passes.
char32_t upperCaseLetter(char32_t typed);
// Every character becomes its upper-case form where it has one (full-width letters included).
char32_t upperCase(char32_t typed);

} // namespace tolvinpt
