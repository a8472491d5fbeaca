#pragma once

#include <tolvinpt/items.h>

namespace tolvinpt {

class frmData;
namespace db {
class Database;
}

// One entry call: load the entry form on the host's list, show the first record, show the form
// modally, unload it. Returns at once when `items` is empty. Throws tolvinpt::Error when a record of
// the list does not exist or the database fails while the list is prepared.
void OpenRecordList(Items& items);
// One entry call in new-record mode.
void OpenNewRecord();

// Fills the customer choice of a freshly loaded form: one item per customer not deleted, then one per
// sub-code, each carrying the customer's id as item data.
void FillCustomerCombo(frmData& form);

// Record movement within gItems on the form of the running call; none of them asks about changes.
void ShowNextRecord(frmData& form, db::Database& database);
void ShowPreviousRecord(frmData& form, db::Database& database);
void ShowRecordAt(frmData& form, db::Database& database, qint32 position);

} // namespace tolvinpt
