#include "store/delivery_save.h"

#include "platform/sql/database.h"
#include "platform/sql/sql_dialect.h"
#include "platform/sql/transaction.h"
#include "store/delivery_writes.h"

using namespace Qt::StringLiterals;

namespace tolvinpt {

namespace {

// The columns that tell whether a stored row is still the one the form showed: everything the form
// shows or writes. Not the print dates: printing is no edit, and a save clears them anyway. Not the
// waste-box flag: the form neither shows nor writes it.
bool comparedWithShown(const DeliveryColumnInfo& info)
{
    switch (info.writer) {
    case Writer::DetailSave:
    case Writer::PackageSave:
        return true;
    case Writer::None:
        return info.column != DeliveryColumn::InDustBox;
    default:
        return false;
    }
}

bool sameAsShown(const DeliveryRecord& shown, const DeliveryRecord& stored)
{
    for (const DeliveryColumnInfo& info : deliveryColumns()) {
        if (!comparedWithShown(info))
            continue;
        // Exact: a change of letter case only is a change too.
        if (shown.has(info.column) != stored.has(info.column) ||
            shown.value(info.column) != stored.value(info.column))
            return false;
    }
    return true;
}

// Every column of the detail that the detail save writes, and the columns it clears.
void updateDetail(db::Database& database, qint64 id, const DeliveryRecord& detail)
{
    db::Statement statement = database.prepare(detailUpdateSql(detail));
    int index = 0;
    for (const DeliveryColumnInfo& info : deliveryColumns()) {
        if (info.writer == Writer::DetailSave && detail.has(info.column))
            statement.bind(index++, storedValue(database.dialect(), info.column, detail.value(info.column)));
    }
    statement.bind(index, id).exec();
}

// The package mode and quantity, and the package rows rewritten as a whole.
void writePackages(db::Database& database, qint64 id, const DeliverySave::Packages& packages)
{
    database.execute(packageModeSql(),
                     {int(packages.mode),
                      storedValue(database.dialect(), DeliveryColumn::Quantity, packages.quantity), id});
    database.execute(packageRowsDeleteSql(), {id});
    if (packages.mode != PackageMode::Individual)
        return;
    db::Statement insert = database.prepare(packageRowInsertSql());
    for (const PackageQuantity& row : packageRowsOf(id, packages.quantities))
        insert.bind({id, row.sequence, database.dialect().currencyValue(row.quantity)}).exec();
}

// Why `save` must not be written, checked inside its write transaction; nullopt when it may.
std::optional<SaveOutcome> refusal(db::Database& database, const DeliverySave& save)
{
    // Only a save that writes the key can make it a duplicate (the checks before a save ask anyway).
    if (save.detail) {
        const auto holder =
            findLiveRecordByOrderKey(database, save.key.customer, save.key.orderNumber, save.key.deliveryKey);
        if (holder && (save.isNew || *holder != save.id))
            return SaveOutcome::DuplicateKey;
    }
    if (save.isNew)
        return std::nullopt;
    return changedSinceShown(database, save.id, save.shown, save.shownPackages);
}

} // namespace

std::optional<SaveOutcome> changedSinceShown(db::Database& database, qint64 id,
                                             const std::optional<DeliveryRecord>& shown,
                                             const std::optional<PackageRows>& shownPackages)
{
    if (shown) {
        const std::optional<DeliveryRecord> stored = readDeliveryRecord(database, id);
        if (!stored)
            return SaveOutcome::DeletedByOther;
        if (!sameAsShown(*shown, *stored))
            return SaveOutcome::ChangedByOther;
    }
    if (shownPackages && readPackageRows(database, id) != *shownPackages)
        return SaveOutcome::ChangedByOther;
    return std::nullopt;
}

SaveResult saveDelivery(db::Database& database, const DeliverySave& save)
{
    db::Transaction transaction(database, db::Transaction::Kind::Write);
    SaveResult result;
    result.id = save.id;
    if (const auto refused = refusal(database, save)) {
        result.outcome = *refused;
        return result;
    }
    if (save.detail) {
        if (save.isNew)
            result.id = insertBlankDeliveryRecord(database);
        updateDetail(database, result.id, *save.detail);
    }
    if (save.packages)
        writePackages(database, result.id, *save.packages);
    result.stored = readDeliveryRecord(database, result.id);
    if (result.stored)
        result.storedPackages = readPackageRows(database, result.id);
    transaction.commit();
    return result;
}

} // namespace tolvinpt
