#pragma once

// Combo items that carry a code out of sight: the visible name, a run of blanks that pushes the code
// past the visible width, a separator and the code. The code is read back from the item text.

#include <QString>

class QComboBox;

namespace tolvinpt {

// Customer item: name, exactly 100 blanks, ":" and the code.
QString customerItem(const QString& name, const QString& code);
// The code of a customer item: the text after the last ":" (the whole text when it has none).
QString customerCodeOf(const QString& item);

// Own-company item: name, exactly 200 blanks, a TAB and the code.
QString ownCodeItem(const QString& name, const QString& code);
// The code of an own-company item: the text after the first TAB (the whole text when it has none).
QString ownCodeOf(const QString& item);

// Selects the last item whose code (customerCodeOf) equals `key` or is a prefix of it, and returns its
// index; -1 when none matches, the selection then unchanged. An item with an empty code matches any key.
int FindComboItem(QComboBox* combo, const QString& key);

} // namespace tolvinpt
