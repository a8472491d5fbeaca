#pragma once

// What the running entry call lends its form. The form knows nothing else of the call: the record list
// it runs on and the position in it belong to the call, and so do the host's objects.

#include "store/delivery_split.h"

#include <QString>
#include <QtGlobal>

#include <memory>

namespace tolvinpt {

class Customer;
class CustomerList;
namespace db {
class Database;
}

class EntryLink
{
public:
    virtual ~EntryLink() = default;

    virtual db::Database& database() = 0;
    virtual const CustomerList& customers() const = 0;
    // The customer whose code is `code`. A code the host does not know is a failure of the host's
    // objects, thrown like any other.
    virtual std::shared_ptr<Customer> customerByCode(const QString& code) const = 0;

    // Record `id` was saved showing the delivery key number `deliveryKey`: its entry in the record
    // list shows the number; a record saved in new-record mode joins the list the call runs on.
    virtual void recordSaved(qint64 id, const QString& deliveryKey, bool newRecord) = 0;
    // Splits the record on screen (splitDelivery) in a write transaction of the call's own. A split that
    // fails (throws) leaves it open, and the call rolls it back before it next reaches the database and
    // when it ends: no half of a split is ever durable, and no later save is lost with it.
    virtual SplitResult splitRecord(const DeliverySplit& split) = 0;
    // New-record mode was left: the record of the call's position is shown again, or, when the call
    // stands on no position (a call for a new record), the form closes and the call ends.
    virtual void newRecordLeft() = 0;
};

} // namespace tolvinpt
