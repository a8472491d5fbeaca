#pragma once

// The save of one delivery record from the entry form, and the order search that prefills a new one.
// Threading: UI thread only, like the connection.

#include "store/delivery_reads.h"
#include "store/delivery_record.h"
#include "store/package_mode.h"
#include "store/package_quantities.h"

#include <optional>

namespace tolvinpt {

namespace db {
class Database;
} // namespace db

// The order key that must stay unique among live records (not in the waste box).
struct OrderKey
{
    qint64 customer = 0; // IDCustomer
    QString orderNumber; // F00007, exactly as typed
    QString deliveryKey; // F00159, exactly as typed
};

// Everything one save writes.
struct DeliverySave
{
    // The record's IDData: the leading number of the form's id text, 0 when that text is empty.
    qint64 id = 0;
    // The form's id text was empty: with `detail`, a row is created first and numbered by the database.
    bool isNew = false;
    // The record data, when it changed: every column the detail save writes, in its stored form
    // (storedValue), DateDeliveryPrint set to Null. Without it the row's data is left alone.
    std::optional<DeliveryRecord> detail;
    // The order key that `detail` writes; the save refuses it when a live record other than this one
    // holds it already. Not consulted without `detail`.
    OrderKey key;

    struct Packages
    {
        PackageMode mode = PackageMode::Single;
        // Quantity: the per-package quantity as the shortest decimal text of the form's number.
        QString quantity;
        // The package rows, for PackageMode::Individual: element 0 is package 1, the first zero ends them.
        PackageQuantities quantities{};
    };
    // The package data, when the record data or the package data changed; written with DateLabelPrint
    // set to Null, the old package rows replaced.
    std::optional<Packages> packages;

    // The row as the form showed it (the display's read), for an existing record: the save writes only
    // if the stored row is still that one, so that what another operator saved meanwhile is never
    // overwritten. Without it (a new record) nothing is compared.
    std::optional<DeliveryRecord> shown;
    // The record's package rows as the form showed them (readPackageRows), when it read them: compared
    // the same way, as another operator may have changed only those.
    std::optional<PackageRows> shownPackages;
};

enum class SaveOutcome {
    Saved,
    DuplicateKey,   // a live record other than this one holds the order key; nothing written
    ChangedByOther, // the stored row is no longer what the form showed; nothing written
    DeletedByOther, // the row the form showed is gone; nothing written
};

struct SaveResult
{
    SaveOutcome outcome = SaveOutcome::Saved;
    // The record's IDData; for a new record the number the database gave it (only when Saved).
    qint64 id = 0;
    // Saved: the row and its package rows as this save left them, read before it committed; what the
    // form shows from now on, to be given as `shown` and `shownPackages` to the next save of the record.
    // nullopt when there is no row (package data saved under IDData 0).
    std::optional<DeliveryRecord> stored;
    std::optional<PackageRows> storedPackages;
};

// Writes `save` in one write transaction that no other writer can interleave: the duplicate check, the
// comparison with the shown row and every write see and hold the same state. Anything but Saved, and
// any DatabaseError (which it throws), leaves the database as it was.
SaveResult saveDelivery(db::Database& database, const DeliverySave& save);

// Whether the stored record `id` is still what a form showed: its row (`shown`) and package rows
// (`shownPackages`), each compared when given. nullopt when it is; DeletedByOther when the row is gone,
// ChangedByOther when another operator changed it. The save and the split ask inside their write
// transaction. Throws DatabaseError.
std::optional<SaveOutcome> changedSinceShown(db::Database& database, qint64 id,
                                             const std::optional<DeliveryRecord>& shown,
                                             const std::optional<PackageRows>& shownPackages);

// The record of `customer` whose order number matches the Like pattern `orderPattern` (used as given:
// the caller removes trailing blanks), waste box included, with the smallest delivery key number;
// nullopt when there is none. Throws DatabaseError.
std::optional<DeliveryRecord> findOrderRecord(db::Database& database, qint64 customer,
                                              const QString& orderPattern);

} // namespace tolvinpt
