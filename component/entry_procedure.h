#pragma once

#include "forms/frmData/frmData.h"
#include "platform/sql/database.h"
#include "platform/sql/transaction.h"
#include "store/delivery_split.h"

#include <tolvinpt/host.h>
#include <tolvinpt/items.h>

#include <memory>
#include <optional>

namespace tolvinpt {

class EntryLink;

// What one entry call holds while the form is up: the host's objects as the call found them (held, so
// that an fmInput destroyed meanwhile releases nothing the form still uses), the store's access to gDB
// and the loaded form, which reaches the call through `link`. `onList`: the call runs on the host's
// record list (InputData), which a record saved in new-record mode joins. Throws the "object not set"
// error when a host object is missing.
//
// A split that fails leaves its write transaction open. The call keeps it and rolls it back before
// anything of the call reaches the database again (store() is the only way there) and when the call
// ends, so no half of a split is ever durable and no later save is lost with it.
struct EntryCall
{
    explicit EntryCall(bool onList = false);
    ~EntryCall();

    // The call's database, for everything the call and its form read and write; a split's transaction
    // left open is rolled back first.
    db::Database& store();
    // splitDelivery in a write transaction of the call's own, left open when the split throws.
    SplitResult split(const DeliverySplit& split);

    std::shared_ptr<CompanySettings> company;
    std::shared_ptr<CustomerList> customers;

private:
    db::Database m_database;
    // The transaction of a split that failed; declared after the database, so it is rolled back before
    // the database goes.
    std::optional<db::Transaction> m_openSplit;

public:
    frmData form;
    const bool onList;
    const std::unique_ptr<EntryLink> link;
};

// One entry call: load the entry form on the host's list, show the first record, show the form
// modally, unload it. Returns at once when `items` is empty. Throws tolvinpt::Error when a record of
// the list does not exist, and db::DatabaseError when the database fails while the list is prepared.
// A failure of a host object while the form is up closes the form and is thrown once it is closed.
void OpenRecordList(Items& items);
// Everything OpenRecordList does before the modal show: the loaded form with its record list, the
// customer choice and the first record. Null when `items` is empty.
std::unique_ptr<EntryCall> PrepareRecordList(Items& items);
// One entry call in new-record mode.
void OpenNewRecord();

// Fills the customer choice of a freshly loaded form: one item per customer not deleted, then one per
// sub-code, each carrying the customer's id as item data. No item is selected afterwards.
void FillCustomerCombo(frmData& form, const CustomerList& customers);

// Record movement within gItems on the form of the running call; none of them asks about changes.
// The record is read before anything moves: when that read fails, the operator sees the database's
// message and the form, the position and the buttons stay as they were.
void ShowNextRecord(EntryCall& call);
void ShowPreviousRecord(EntryCall& call);
void ShowRecordAt(EntryCall& call, qint32 position);

} // namespace tolvinpt
