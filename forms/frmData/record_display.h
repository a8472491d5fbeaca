#pragma once

#include <QtGlobal>

namespace tolvinpt {

class CustomerList;
class frmData;
namespace db {
class Database;
}

// Reads the record `id` from T_Delivery (and its packages) and shows it on `form`: every field, the
// kind caption, the supplier fields opened or locked by the view-only setting, the package frame.
// A failing step (a database error, a Null or unreadable column, a missing customer) is skipped and the
// rest still runs, so one bad column leaves its field as the cleared form had it. A record that does not
// exist leaves the form as it was. Either way the form ends without pending changes.
void ShowDeliveryRecord(frmData& form, db::Database& database, const CustomerList& customers, qint64 id);

// Opens (false) or locks (true) the supplier-editable fields and the commands that change records.
void applyViewOnly(frmData& form, bool viewOnly);

} // namespace tolvinpt
