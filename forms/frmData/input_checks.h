#pragma once

// The checks before a save (frmData::CheckInput) and what the save shares with them.

#include "store/delivery_save.h"

namespace tolvinpt {

class frmData;

// What the save and the split tell the operator when the order key is taken or the record on screen is
// no longer as it was shown.
inline constexpr QStringView DuplicateKeyText = u"同一の納品ｷｰ番号が存在します";
inline constexpr QStringView ChangedByOtherText = u"このﾃﾞｰﾀは、表示した後に他の担当者が変更しました";
inline constexpr QStringView DeletedByOtherText = u"このﾃﾞｰﾀは、表示した後に他の担当者が削除しました";

// The buyer's id: the item data of the selected customer. Throws RunTimeError when none is selected.
qint64 selectedCustomerId(const frmData& form);
// The order key on screen: the buyer, the order number and the delivery key number as typed.
OrderKey orderKeyOnScreen(const frmData& form);

// A live record other than this one holds the order key: says so and puts the focus in the delivery
// key number.
void refuseDuplicateKey(frmData& form);

} // namespace tolvinpt
