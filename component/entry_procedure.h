#pragma once

#include <tolvinpt/items.h>

namespace tolvinpt {

// One entry call: load the entry form on the host's list, show it modally, unload it.
// Returns at once when `items` is empty.
void OpenRecordList(Items& items);
// One entry call in new-record mode.
void OpenNewRecord();

} // namespace tolvinpt
