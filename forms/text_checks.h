#pragma once

// Width checks shared by the forms: a half-width field takes single-byte characters of code page 932
// only (ASCII, half-width katakana), a full-width field double-byte ones only (kanji, kana, full-width
// letters). Both run when the operator leaves the field.

class QLineEdit;

namespace tolvinpt {

// Removes the trailing blanks of `box`'s text, narrows it to half-width and writes it back whole, on
// every call (a write-back that alters the text raises the box's change signals). True when every
// character of the result is one byte in code page 932; otherwise shows the half-width message, which
// quotes the box's maximum length, and returns false.
bool CheckHalfWidth(QLineEdit* box);

// The same for full-width: widens the text and accepts it when every character is two bytes, otherwise
// shows the full-width message.
bool CheckFullWidth(QLineEdit* box);

} // namespace tolvinpt
