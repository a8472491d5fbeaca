#pragma once

// Writing a text box's text from code. A box's maximum length limits what the operator types and
// pastes, not what code writes: normalising a text can lengthen it (ガ becomes ｶﾞ), and that text must
// stay whole. QLineEdit cuts whatever it is given at its maxLength, so code that writes a text that may
// be longer goes through assignText.

#include <QString>

class QLineEdit;

namespace tolvinpt {

// Sets the text of `box` to `text`, whole. While the text is longer than the box's own limit, the
// operator can shorten it but not lengthen it; once it fits again the limit is back. Raises the box's
// change signals like QLineEdit::setText (nothing for an identical text).
void assignText(QLineEdit* box, const QString& text);

// The box's own maximum length in characters, also while assignText has let a longer text in.
int maxLengthOf(const QLineEdit* box);

} // namespace tolvinpt
