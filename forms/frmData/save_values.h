#pragma once

#include "store/delivery_save.h"

namespace tolvinpt {

class frmData;
namespace db {
class SqlDialect;
}

// What a save of the record on screen writes: the row's columns when the record changed, the package
// data when it or the packages changed, and the row as it was shown. Throws RunTimeError for a value
// that does not convert (a date that is no date, a price that is no number, no customer selected).
DeliverySave deliverySaveOf(const frmData& form, const db::SqlDialect& dialect);

// The id of the record on screen as txtIDData reads; 0 when it is empty. Throws RunTimeError (overflow).
qint64 recordIdOnScreen(const frmData& form);

} // namespace tolvinpt
