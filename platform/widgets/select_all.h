#pragma once

// Selecting a text field's whole text on entry, so that typing replaces it.

class QComboBox;
class QLineEdit;

namespace tolvinpt {

// Selection start 0, selection length the length of the text; the caret ends after the text.
void SelectAllText(QLineEdit* box);
// The same for the text of an editable combo box; a combo box without a line edit is left alone.
void SelectAllText(QComboBox* box);

// Keeps the selection `edit` has now through the mouse click that is being delivered: the press would
// put the caret under the pointer. A drag that selects text itself is left as the operator made it.
// Does nothing when `edit` has no selection. The focus mechanism calls it after GotFocus on a click.
void keepSelectionThroughClick(QLineEdit* edit);

} // namespace tolvinpt
