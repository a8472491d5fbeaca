#pragma once

// The split of a stored delivery record in two: the record keeps the rest of its delivery quantity, a
// copy of it under a new delivery key number carries the quantity split off.
// Threading: UI thread only, like the connection.

#include "platform/values/currency.h"
#include "store/delivery_save.h"

namespace tolvinpt {

namespace db {
class Transaction;
} // namespace db

struct DeliverySplit
{
    // The record on screen (IDData): the only record the split writes.
    qint64 id = 0;
    // The record is found by its order key among live records: the buyer (IDCustomer), and the order
    // number and oldKey as Like patterns, trailing blanks removed.
    qint64 customer = 0;
    QString orderNumber;
    QString oldKey;
    // The delivery quantity as the form held it, and the part of it that moves to the new record.
    Currency oldQuantity;
    Currency newQuantity;
    // The new record's delivery key number, stored as given. Refused when, trailing blanks removed, it
    // matches as a Like pattern the key of a live record of the buyer whose order number matches too.
    QString newKey;
    // The row and its package rows as the form showed them (compared as the save compares them).
    std::optional<DeliveryRecord> shown;
    std::optional<PackageRows> shownPackages;
};

struct SplitResult
{
    // Saved: both records are stored. DuplicateKey, ChangedByOther, DeletedByOther: nothing written.
    SaveOutcome outcome = SaveOutcome::Saved;
    // The new record's IDData, when Saved.
    qint64 newId = 0;
};

// Splits inside `transaction`, a write transaction that the caller began on `database`, and commits it,
// also after a refusal (nothing is written then). The new row copies every column of the table but the
// first (the identifier) by position, those the component does not know included; both rows get their
// delivery quantity, and a row packed individually, or in equal packages at least as large as its new
// quantity, becomes a single package of it (the record's package rows deleted); both print dates are
// cleared. A DatabaseError (a record that is not found, 3021, among them) is thrown with the transaction
// left open as it stands: the caller decides its fate.
SplitResult splitDelivery(db::Database& database, db::Transaction& transaction, const DeliverySplit& split);

// The statements a split of `source`, a record of a table with `columns`, runs after the comparison with
// what the form showed, each with its values: for benchmarks that run them through another layer.
struct SplitStatement
{
    QString sql;
    QList<QVariant> values;
};
struct SplitPlan
{
    SplitStatement keyTest, source, insert, update, deletePackages;
};
SplitPlan splitPlan(const db::SqlDialect& dialect, const DeliverySplit& split, const QStringList& columns,
                    const DeliveryRecord& source);

} // namespace tolvinpt
