// Measures the save and the order search against the sqlite3 C API running the same statements:
//   tolvinpt-bench-save FILE...   (databases made by tolvinpt-bench-generate; each is copied first)
// On the copy it adds 1,000 records of one buyer sharing an order number and two records of 100 packages.
// Then, per operation, the median time per call of our layer and of the C API, and their ratio:
// the save of a changed record with 100 packages (with the file's own syncing, and without syncing so
// that the layers' own costs show), the duplicate-key check, the order search hitting 1 and 1,000 rows.
#include "bench/bench_database.h"
#include "bench/database_copies.h"
#include "bench/delivery_generator.h"
#include "bench/raw_libpq.h"
#include "bench/raw_save.h"
#include "bench/timing.h"
#include "platform/sql/database.h"
#include "platform/sql/sql_dialect.h"
#include "platform/sql/transaction.h"
#include "store/delivery_reads.h"
#include "store/delivery_save.h"
#include "store/delivery_writes.h"
#include "store/like_match.h"

#include <QSqlDatabase>
#include <QSqlError>

#include <array>
#include <cstdio>
#include <functional>
#include <random>

using namespace Qt::StringLiterals;
using namespace tolvinpt;
using C = tolvinpt::DeliveryColumn;
using tolvinpt::bench::RawValue;

namespace {

constexpr qint64 BenchCustomer = 1;
const QString SharedOrder = u"BENCH-1000"_s;

struct Key
{
    qint64 customer;
    QString order, key;
    std::string orderUtf8, keyUtf8;
};

Key keyOf(qint64 customer, const QString& order, const QString& key)
{
    return {customer, order, key, order.toStdString(), key.toStdString()};
}

// Microseconds per call, `count` calls a sample, the two sides taking turns (see alternate).
template <typename Ours, typename Raw> bench::Medians compare(int rounds, int count, Ours&& ours, Raw&& raw)
{
    const auto sample = [count](auto& operation) {
        return [&operation, count](std::vector<double>& samples) {
            samples.push_back(bench::millisecondsOf([&] {
                                  for (int i = 0; i < count; ++i)
                                      operation(i);
                              }) *
                              1000.0 / count);
        };
    };
    return bench::alternate(rounds, sample(ours), sample(raw));
}

void print(const char* operation, const bench::Medians& m)
{
    std::printf("  %-40s %9.2f %9.2f %8.2f\n", operation, m.ours, m.raw, m.ours / m.raw);
}

// The database's own record, with only the columns the detail save writes.
DeliveryRecord detailOf(const DeliveryRecord& record)
{
    DeliveryRecord detail;
    for (const DeliveryColumnInfo& info : deliveryColumns()) {
        if (info.writer == Writer::DetailSave && record.has(info.column))
            detail.set(info.column, record.value(info.column));
    }
    return detail;
}

// Records added to the copy: 1,000 of one buyer and order number, and two with 100 packages to save.
std::pair<qint64, qint64> prepare(db::Database& database)
{
    db::Transaction transaction(database, db::Transaction::Kind::Write);
    bench::DeliveryGenerator generator(1234);
    QList<QVariant> packages;
    for (int i = 0; i < 1000; ++i) {
        DeliveryRecord record = generator.next(packages);
        record.set(C::IDCustomer, BenchCustomer);
        record.set(C::F00007, SharedOrder);
        record.set(C::F00159, u"BK%1"_s.arg(i, 4, 10, QChar(u'0')));
        record.set(C::InDustBox, false);
        insertDeliveryRecord(database, record);
    }
    QList<QVariant> hundred;
    for (int i = 1; i <= MaxPackages; ++i)
        hundred.append(QString::number(i));
    std::pair<qint64, qint64> saved;
    for (qint64* id : {&saved.first, &saved.second}) {
        DeliveryRecord record = generator.next(packages);
        record.set(C::IDCustomer, BenchCustomer);
        record.set(C::F00007, u"BENCH-SAVE"_s);
        record.set(C::F00159, id == &saved.first ? u"OURS"_s : u"RAW"_s);
        record.set(C::InDustBox, false);
        record.set(C::QuantityType, int(PackageMode::Individual));
        *id = insertDeliveryRecord(database, record);
        insertPackageRows(database, *id, hundred);
    }
    transaction.commit();
    return saved;
}

// Live records, for the duplicate check, and those whose order number no other record of the buyer
// has, for the search that hits one row; the same for both sides.
void sampleKeys(db::Database& database, std::vector<Key>& live, std::vector<Key>& single)
{
    const qint64 maxId = database.scalar(u"SELECT MAX(IDData) FROM T_Delivery"_s)->toLongLong();
    std::mt19937_64 random(7);
    while (live.size() < 2000 || single.size() < 2000) {
        const auto record =
            readDeliveryRecord(database, std::uniform_int_distribution<qint64>(1, maxId)(random));
        if (!record || record->boolean(C::InDustBox).value_or(true))
            continue;
        const Key key = keyOf(*record->integer(C::IDCustomer), record->text(C::F00007).value_or(QString()),
                              record->text(C::F00159).value_or(QString()));
        if (live.size() < 2000)
            live.push_back(key);
        const qint64 sameOrder = database
                                     .scalar(u"SELECT COUNT(*) FROM T_Delivery WHERE IDCustomer = ? AND "_s +
                                                 database.dialect().textEquals(u"F00007"_s),
                                             {key.customer, key.order})
                                     ->toLongLong();
        if (sameOrder == 1 && single.size() < 2000)
            single.push_back(key);
    }
}

// The raw side's values: what our layer binds, converted before any timing.
template <typename Convert>
auto rawDetails(const db::SqlDialect& dialect, const DeliveryRecord& rawDetail, Convert convert)
{
    std::array<std::vector<decltype(convert(QVariant()))>, 2> values;
    for (int parity = 0; parity < 2; ++parity) {
        DeliveryRecord detail = rawDetail;
        detail.set(C::F00022, u"changed %1"_s.arg(parity));
        for (const DeliveryColumnInfo& info : deliveryColumns()) {
            if (info.writer == Writer::DetailSave && detail.has(info.column))
                values[parity].push_back(
                    convert(storedValue(dialect, info.column, detail.value(info.column))));
        }
    }
    return values;
}

template <typename Raw, typename Values>
void measureWith(db::Database& ours, Raw& raw, const QString& source, const std::pair<qint64, qint64>& saved,
                 const std::array<Values, 2>& rawValues, const std::function<void()>& stopSyncing)
{
    const db::SqlDialect& dialect = ours.dialect();
    const auto [oursId, rawId] = saved;
    std::vector<Key> live, single;
    sampleKeys(ours, live, single);

    // The save of ours: a changed record (F00022 alternates), every package rewritten.
    DeliverySave save;
    save.id = oursId;
    save.detail = detailOf(*readDeliveryRecord(ours, oursId));
    save.key = {BenchCustomer, u"BENCH-SAVE"_s, u"OURS"_s};
    save.shown = readDeliveryRecord(ours, oursId);
    save.shownPackages = readPackageRows(ours, oursId);
    save.packages = DeliverySave::Packages{PackageMode::Individual, u"1"_s, {}};
    for (int i = 0; i < MaxPackages; ++i)
        save.packages->quantities[std::size_t(i)] = Currency::fromInteger(i + 1);
    std::vector<std::string> rawPackages;
    for (int i = 1; i <= MaxPackages; ++i)
        rawPackages.push_back(dialect.currencyValue(Currency::fromInteger(i)).toString().toStdString());
    std::size_t sink = 0;

    const auto saveOurs = [&](int i) {
        save.detail->set(C::F00022, u"changed %1"_s.arg(i % 2));
        SaveResult result = saveDelivery(ours, save);
        if (result.outcome != SaveOutcome::Saved)
            throw std::runtime_error("not saved");
        save.shown = std::move(result.stored);
        save.shownPackages = std::move(result.storedPackages);
        sink += save.shownPackages->quantities.size();
    };
    const auto saveRaw = [&](int i) {
        sink += raw.save(rawId, BenchCustomer, "BENCH-SAVE", "RAW", rawValues[i % 2], 3, "1", rawPackages);
    };
    const auto checkOurs = [&](int i) {
        const Key& k = live[std::size_t(i)];
        sink += findLiveRecordByOrderKey(ours, k.customer, k.order, k.key).value_or(0);
    };
    const auto checkRaw = [&](int i) {
        const Key& k = live[std::size_t(i)];
        sink += raw.findByOrderKey(k.customer, k.orderUtf8, k.keyUtf8).value_or(0);
    };
    // The search's values for the raw side (the index range, the match), worked out beforehand; ours
    // works them out per call.
    struct Search
    {
        std::string from, to, match;
    };
    const auto searchOf = [&](const QString& pattern) {
        const LikeMatch match = likeMatch(dialect, u"F00007"_s, pattern);
        return Search{match.values.at(0).toString().toStdString(),
                      match.values.at(1).toString().toStdString(),
                      match.values.at(2).toString().toStdString()};
    };
    std::vector<Search> singleSearches;
    for (const Key& k : single)
        singleSearches.push_back(searchOf(k.order));
    const auto searchOurs = [&](int i) {
        const Key& k = single[std::size_t(i)];
        sink += findOrderRecord(ours, k.customer, k.order)->has(C::F00022);
    };
    const auto searchRaw = [&](int i) {
        const Search& search = singleSearches[std::size_t(i)];
        sink += raw.search(single[std::size_t(i)].customer, search.from, search.to, search.match);
    };
    const Search shared = searchOf(SharedOrder);
    const auto searchSharedOurs = [&](int) {
        sink += findOrderRecord(ours, BenchCustomer, SharedOrder)->has(C::F00022);
    };
    const auto searchSharedRaw = [&](int) {
        sink += raw.search(BenchCustomer, shared.from, shared.to, shared.match);
    };

    const qint64 rows = ours.scalar(u"SELECT COUNT(*) FROM T_Delivery"_s)->toLongLong();
    std::printf("%s: %lld records (copy)\n  %-40s %9s %9s %8s\n", qPrintable(source),
                static_cast<long long>(rows), "operation (median per call)", "ours us", "raw us", "ours/raw");
    print("save, 100 packages (the file's sync)", compare(11, 20, saveOurs, saveRaw));
    stopSyncing();
    print("save, 100 packages (no sync)", compare(7, 50, saveOurs, saveRaw));
    print("duplicate-key check", compare(11, 2000, checkOurs, checkRaw));
    print("order search, 1 row", compare(11, 2000, searchOurs, searchRaw));
    print("order search, 1,000 rows", compare(11, 100, searchSharedOurs, searchSharedRaw));
    std::printf("  (checksum %zu)\n", sink);
}

int measure(const QString& source, const QString& copy)
{
    db::Database ours(bench::openDatabase(copy, copy));
    const db::SqlDialect& dialect = ours.dialect();
    const auto saved = prepare(ours);
    const DeliveryRecord rawDetail = detailOf(*readDeliveryRecord(ours, saved.second));
    const bench::RawSaveStatements sql{
        orderKeySql(dialect).toStdString(),  deliveryRecordSql().toStdString(),
        packageRowsSql().toStdString(),      detailUpdateSql(rawDetail).toStdString(),
        packageModeSql().toStdString(),      packageRowsDeleteSql().toStdString(),
        packageRowInsertSql().toStdString(), orderSearchSql(dialect, true).toStdString()};
    if (bench::isServer(copy)) {
        bench::RawPgSave raw(copy.toStdString(), sql,
                             bench::statementTexts(dialect.beginTransaction(db::TransactionKind::Write)));
        // Both sides on one server: its syncing cannot be told apart (the benchmark cluster runs without).
        measureWith(ours, raw, source, saved, rawDetails(dialect, rawDetail, bench::pgValue), [] {});
    } else {
        bench::RawSave raw(copy.toStdString(), sql);
        measureWith(ours, raw, source, saved, rawDetails(dialect, rawDetail, bench::rawValue), [&] {
            ours.execute(u"PRAGMA synchronous = OFF"_s);
            raw.execute("PRAGMA synchronous = OFF");
        });
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    return bench::measureCopies(argc, argv, "tolvinpt-bench-save", measure);
}
