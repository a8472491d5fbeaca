#pragma once

#include "store/delivery_record.h"

#include <QtGlobal>

#include <optional>

namespace tolvinpt {

class CustomerList;
class frmData;
namespace db {
class Database;
}

// Shows a record read by readDeliveryRecord on `form`: every field, the kind caption, the supplier
// fields opened or locked by the view-only setting, the package frame (its package rows are read here).
// A failing step (a Null, missing or unreadable column, a database error) is skipped and the rest still
// runs, so one bad column leaves its field as the cleared form had it; a failure of the host's objects
// ends the display and is thrown. No record (nullopt) leaves the form as it was. Either way the form
// ends without pending changes.
void ShowDeliveryRecord(frmData& form, db::Database& database, const CustomerList& customers,
                        const std::optional<DeliveryRecord>& record);
// Reads the record `id` and shows it as above. Throws db::DatabaseError, with the form unchanged, when
// the read fails as a whole.
void ShowDeliveryRecord(frmData& form, db::Database& database, const CustomerList& customers, qint64 id);

// Opens (false) or locks (true) the supplier-editable fields and the commands that change records.
void applyViewOnly(frmData& form, bool viewOnly);

} // namespace tolvinpt
