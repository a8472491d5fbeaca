#pragma once

#include "forms/frmData/frmData.h"
#include "platform/database.h"

#include <tolvinpt/items.h>

#include <memory>

namespace tolvinpt {

// What one entry call holds while the form is up: the store's access to gDB and the loaded form.
struct EntryCall
{
    explicit EntryCall(const QSqlDatabase& connection);
    db::Database database;
    frmData form;
};

// One entry call: load the entry form on the host's list, show the first record, show the form
// modally, unload it. Returns at once when `items` is empty. Throws tolvinpt::Error when a record of
// the list does not exist or the database fails while the list is prepared.
void OpenRecordList(Items& items);
// Everything OpenRecordList does before the modal show: the loaded form with its record list, the
// customer choice and the first record. Null when `items` is empty.
std::unique_ptr<EntryCall> PrepareRecordList(Items& items);
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
