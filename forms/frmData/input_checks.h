#pragma once

// The checks before a save (frmData::CheckInput) and what the save shares with them.

#include "store/delivery_save.h"

namespace tolvinpt {

class frmData;

// The buyer's id: the item data of the selected customer. Throws RunTimeError when none is selected.
qint64 selectedCustomerId(const frmData& form);
// The order key on screen: the buyer, the order number and the delivery key number as typed.
OrderKey orderKeyOnScreen(const frmData& form);

// A live record other than this one holds the order key: says so and puts the focus in the delivery
// key number.
void refuseDuplicateKey(frmData& form);

} // namespace tolvinpt
