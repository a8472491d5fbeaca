#pragma once

// The button cmdQuantity ("個別入力") of the entry form: opens the per-package quantity editor.

namespace tolvinpt {
class frmData;
}

namespace tolvinpt::frmdata {

// Connects cmdQuantity to cmdQuantity_Click.
void connectPackageEditor(frmData& form);

// Opens the per-package quantity editor over the delivery quantity of `form`, beside the form's right
// edge and as high as the form; refused with a beep (and a message when the delivery quantity is
// 0.001 or less) while there is nothing to break down. Afterwards txtQuantity holds the editor's
// equal-split quantity whatever way it was closed; an accepted grid becomes gPackageQty and sets
// bChangedQTY.
void cmdQuantity_Click(frmData& form);

} // namespace tolvinpt::frmdata
