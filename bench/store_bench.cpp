// Measures the store layer against the sqlite3 C API running the same statements, in the same run:
//   tolvinpt-bench-store [--portable] FILE|URI...   (databases made by tolvinpt-bench-generate, or on a
//   PostgreSQL server: a postgresql:// URI, measured against libpq)
// --portable measures the QSqlQuery statement path instead of the native one.
// For each file: read one record by IDData, find a record by its order key, insert and delete a record in
// one transaction. Prints the median time per operation over several rounds and the ratio ours/raw.
#include "bench/bench_database.h"
#include "bench/delivery_generator.h"
#include "bench/raw_libpq.h"
#include "bench/raw_sqlite.h"
#include "platform/sql/database.h"
#include "platform/sql/sql_dialect.h"
#include "platform/sql/transaction.h"
#include "store/delivery_reads.h"
#include "store/delivery_writes.h"

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlError>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <random>

using namespace Qt::StringLiterals;
using namespace tolvinpt;
using tolvinpt::bench::RawValue;
using tolvinpt::bench::rawValue;

namespace {

struct OrderKey
{
    qint64 customer;
    QString order, key;
    std::string orderUtf8, keyUtf8;
};

struct Result
{
    double ours, raw; // median microseconds per operation
};

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// Microseconds per call of `operation` over `count` calls.
template <typename Operation> double perCall(int count, Operation&& operation)
{
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < count; ++i)
        operation(i);
    const std::chrono::duration<double, std::micro> elapsed = std::chrono::steady_clock::now() - start;
    return elapsed.count() / count;
}

// Runs a batch of calls as it is, or inside one read transaction.
using Batch = std::function<double(const std::function<double()>&)>;

double asIs(const std::function<double()>& calls)
{
    return calls();
}

// Both sides once to warm the caches, then `rounds` rounds taking turns at going first.
template <typename Ours, typename Raw>
Result compare(int rounds, int count, Ours&& ours, Raw&& raw, const Batch& oursBatch = asIs,
               const Batch& rawBatch = asIs)
{
    const auto runOurs = [&] { return oursBatch([&] { return perCall(count, ours); }); };
    const auto runRaw = [&] { return rawBatch([&] { return perCall(count, raw); }); };
    runOurs();
    runRaw();
    std::vector<double> oursTimes, rawTimes;
    for (int round = 0; round < rounds; ++round) {
        if (round % 2 == 0) {
            oursTimes.push_back(runOurs());
            rawTimes.push_back(runRaw());
        } else {
            rawTimes.push_back(runRaw());
            oursTimes.push_back(runOurs());
        }
    }
    return {median(oursTimes), median(rawTimes)};
}

void print(const char* operation, const Result& r)
{
    std::printf("  %-34s %9.2f %9.2f %8.2f\n", operation, r.ours, r.raw, r.ours / r.raw);
}

struct Sample
{
    std::vector<qint64> ids;
    std::vector<OrderKey> keys;
    DeliveryRecord newRecord;
};

// 2,000 random live records, the same for every operation and both sides, and a record to insert.
Sample sample(db::Database& ours)
{
    const qint64 maxId = ours.scalar(u"SELECT MAX(IDData) FROM T_Delivery"_s)->toLongLong();
    std::mt19937_64 random(7);
    Sample s;
    while (s.ids.size() < 2000) {
        const qint64 id = std::uniform_int_distribution<qint64>(1, maxId)(random);
        const auto record = readDeliveryRecord(ours, id);
        if (!record || record->boolean(DeliveryColumn::InDustBox).value_or(true))
            continue;
        s.ids.push_back(id);
        const QString order = record->text(DeliveryColumn::F00007).value_or(QString());
        const QString key = record->text(DeliveryColumn::F00159).value_or(QString());
        s.keys.push_back({*record->integer(DeliveryColumn::IDCustomer), order, key, order.toStdString(),
                          key.toStdString()});
    }
    QList<QVariant> packages;
    s.newRecord = bench::DeliveryGenerator(99).next(packages);
    return s;
}

// The new record's values as `convert` makes them of ours, before any timing.
template <typename Convert>
auto newValues(const db::Database& ours, const DeliveryRecord& record, Convert convert)
{
    std::vector<decltype(convert(QVariant()))> values;
    for (const DeliveryColumnInfo& info : deliveryColumns()) {
        if (record.has(info.column))
            values.push_back(convert(storedValue(ours.dialect(), info.column, record.value(info.column))));
    }
    return values;
}

template <typename Raw, typename Values>
void measure(db::Database& ours, Raw& raw, const Sample& s, const Values& rawValues)
{
    const int count = static_cast<int>(s.ids.size());
    std::size_t sink = 0;
    const auto readOurs = [&](int i) {
        sink += readDeliveryRecord(ours, s.ids[i])->has(DeliveryColumn::F00007);
    };
    const auto readRaw = [&](int i) { sink += raw.readRecord(s.ids[i]); };
    const auto findOurs = [&](int i) {
        const OrderKey& k = s.keys[i];
        sink += findLiveRecordByOrderKey(ours, k.customer, k.order, k.key).value_or(0);
    };
    const auto findRaw = [&](int i) {
        const OrderKey& k = s.keys[i];
        sink += raw.findByOrderKey(k.customer, k.orderUtf8, k.keyUtf8).value_or(0);
    };
    // Each statement on its own, as the entry form runs them: every one takes and drops the file lock.
    print("read one record by IDData", compare(11, count, readOurs, readRaw));
    print("find a record by order key", compare(11, count, findOurs, findRaw));
    // Inside one read transaction the locking drops out and the layers' own costs show.
    const Batch oursRead = [&](const std::function<double()>& calls) {
        db::Transaction transaction(ours, db::Transaction::Kind::Read);
        return calls();
    };
    const Batch rawRead = [&](const std::function<double()>& calls) { return raw.inTransaction(calls); };
    print("read by IDData, one transaction", compare(11, count, readOurs, readRaw, oursRead, rawRead));
    print("find by order key, one transaction", compare(11, count, findOurs, findRaw, oursRead, rawRead));
    print("insert and delete a record",
          compare(
              7, 20,
              [&](int) {
                  db::Transaction transaction(ours, db::Transaction::Kind::Write);
                  deleteDeliveryRecord(ours, insertDeliveryRecord(ours, s.newRecord));
                  transaction.commit();
              },
              [&](int) { raw.insertAndDelete(rawValues); }));
    std::printf("  (checksum %zu)\n", sink);
}

int benchmark(const QString& target, db::Database::StatementPath path)
{
    db::Database ours(bench::openDatabase(target, target), path);
    const db::SqlDialect& dialect = ours.dialect();
    const qint64 rows = ours.scalar(u"SELECT COUNT(*) FROM T_Delivery"_s)->toLongLong();
    const Sample s = sample(ours);
    std::printf("%s: %lld records\n  %-34s %9s %9s %8s\n", qPrintable(target), static_cast<long long>(rows),
                "operation (median per call)", "ours us", "raw us", "ours/raw");
    const std::string insert = deliveryInsertSql(s.newRecord).toStdString();
    if (bench::isServer(target)) {
        // The same transactions as ours: a snapshot for the reads, the writers' lock for the write.
        bench::RawPgStore raw(target.toStdString(),
                              {deliveryRecordSql().toStdString(), orderKeySql(dialect).toStdString(),
                               insert + " RETURNING IDData"},
                              bench::statementTexts(dialect.beginTransaction(db::TransactionKind::Read)),
                              bench::statementTexts(dialect.beginTransaction(db::TransactionKind::Write)));
        measure(ours, raw, s, newValues(ours, s.newRecord, bench::pgValue));
    } else {
        bench::RawSqlite raw(target.toStdString(),
                             {deliveryRecordSql().toStdString(), orderKeySql(dialect).toStdString(), insert});
        measure(ours, raw, s, newValues(ours, s.newRecord, rawValue));
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QStringList files = app.arguments().mid(1);
    const bool portable = files.removeAll(u"--portable"_s) > 0;
    const auto path = portable ? db::Database::StatementPath::Portable : db::Database::StatementPath::Native;
    if (files.isEmpty()) {
        std::fprintf(stderr, "usage: %s [--portable] FILE...\n", argv[0]);
        return 2;
    }
    int status = 0;
    for (const QString& file : files) {
        try {
            status |= benchmark(file, path);
        } catch (const db::DatabaseError& e) {
            std::fprintf(stderr, "%s: %s\n", qPrintable(file), qPrintable(e.operatorText()));
            status = 1;
        } catch (const std::runtime_error& e) {
            std::fprintf(stderr, "%s: %s\n", qPrintable(file), e.what());
            status = 1;
        }
        QSqlDatabase::removeDatabase(file);
    }
    return status;
}
