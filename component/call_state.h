#pragma once

// State of one entry call, shared by the entry procedure and the record movement. UI thread only.

#include <tolvinpt/items.h>

namespace tolvinpt {

class frmData;
namespace db {
class Database;
}

// The host's list of the running InputData call; kept by reference, left pointing at the host's
// object after the call until the next call replaces it.
extern Items* gItems;
// 1-based position in gItems of the record on screen; 0 in a NewData call.
extern qint32 gIndex;

// The record id of a list element: its text read as a leading decimal number, rounded to an integer.
// Throws tolvinpt::Error (overflow) for a number outside 32 bits.
qint32 recordIdOf(const QVariant& element);

} // namespace tolvinpt
