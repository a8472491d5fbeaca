// Measures the split of a record with 100 packages against the sqlite3 C API running the same statements:
//   tolvinpt-bench-split FILE...   (databases made by tolvinpt-bench-generate; each is copied first)
// On the copy it adds two records of one buyer, 100 packages each, one per side. Before every split (and
// outside the time) the record is put back as it was: its new half deleted, 100 packages again.
// Then the median time per split of each side, and their ratio, with the file's own syncing and without.
#include "bench/database_copies.h"
#include "bench/delivery_generator.h"
#include "bench/raw_sqlite.h"
#include "bench/timing.h"
#include "platform/sql/database.h"
#include "platform/sql/sqlite_backend.h"
#include "platform/sql/transaction.h"
#include "store/delivery_split.h"
#include "store/delivery_writes.h"

#include <QSqlDatabase>
#include <QSqlError>

#include <sqlite3.h>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace tolvinpt;
using C = tolvinpt::DeliveryColumn;
using tolvinpt::bench::RawValue;

namespace {

constexpr qint64 BenchCustomer = 1;
const QString Order = u"BENCH-SPLIT"_s;

std::vector<RawValue> rawValues(const QList<QVariant>& values)
{
    std::vector<RawValue> raw;
    for (const QVariant& value : values)
        raw.push_back(bench::rawValue(value));
    return raw;
}

// The split's statements through the C API alone, with their values converted beforehand.
class RawSplit
{
public:
    RawSplit(const std::string& file, const SplitPlan& plan, qint64 id) : m_connection(file), m_id(id)
    {
        db::ensureLikeFunction(m_connection.handle());
        for (const SplitStatement* s :
             {&plan.keyTest, &plan.source, &plan.insert, &plan.update, &plan.deletePackages})
            m_steps.push_back({m_connection.prepare(s->sql.toStdString()), rawValues(s->values)});
        m_read = m_connection.prepare(deliveryRecordSql().toStdString());
        m_readPackages = m_connection.prepare(packageRowsSql().toStdString());
        m_begin = m_connection.prepare("BEGIN IMMEDIATE");
        m_commit = m_connection.prepare("COMMIT");
    }
    void execute(const std::string& sql) { m_connection.execute(sql); }

    // In one write transaction: the new key's test, the record and its packages read (for the comparison
    // with what was shown), the record found by its order key, the new row, the record's update, its
    // packages deleted. Returns the new record's IDData.
    std::int64_t split()
    {
        m_connection.run(m_begin);
        if (step(m_steps[0]))
            throw std::runtime_error("the new key is taken");
        bench::readRow(m_read, m_id, m_row);
        sqlite3_bind_int64(m_readPackages, 1, m_id);
        while (sqlite3_step(m_readPackages) == SQLITE_ROW)
            bench::appendRow(m_readPackages, m_row);
        sqlite3_reset(m_readPackages);
        m_row.clear();
        if (!step(m_steps[1]))
            throw std::runtime_error("no record");
        for (std::size_t i = 2; i < m_steps.size(); ++i)
            step(m_steps[i]);
        const std::int64_t added = sqlite3_last_insert_rowid(m_connection.handle());
        m_connection.run(m_commit);
        return added;
    }

private:
    struct Step
    {
        sqlite3_stmt* statement;
        std::vector<RawValue> values;
    };
    // Runs a step; a row it returns is copied out. True when there was one.
    bool step(const Step& s)
    {
        bench::bindValues(s.statement, s.values);
        const int rc = sqlite3_step(s.statement);
        if (rc == SQLITE_ROW)
            bench::appendRow(s.statement, m_row);
        sqlite3_reset(s.statement);
        if (rc != SQLITE_ROW && rc != SQLITE_DONE)
            throw std::runtime_error(sqlite3_errmsg(m_connection.handle()));
        return rc == SQLITE_ROW;
    }

    bench::RawConnection m_connection;
    qint64 m_id;
    std::vector<Step> m_steps;
    sqlite3_stmt *m_read, *m_readPackages, *m_begin, *m_commit;
    std::vector<RawValue> m_row;
};

// A record of 1,000 in 100 packages of 10, printed, as before every split; its split-off half gone.
void restore(db::Database& database, qint64 id, qint64 added)
{
    static const QList<QVariant> hundred(MaxPackages, QVariant(u"10"_s));
    db::Transaction transaction(database, db::Transaction::Kind::Write);
    if (added)
        deleteDeliveryRecord(database, added);
    database.execute(u"UPDATE T_Delivery SET F00036 = 1000, QuantityType = 3, Quantity = '10', "
                     u"DateDeliveryPrint = '2005-03-10 09:00:00', DateLabelPrint = '2005-03-10 09:00:00' "
                     u"WHERE IDData = ?"_s,
                     {id});
    database.execute(packageRowsDeleteSql(), {id});
    insertPackageRows(database, id, hundred);
    transaction.commit();
}

qint64 addRecord(db::Database& database, const QString& key)
{
    QList<QVariant> packages;
    DeliveryRecord record = bench::DeliveryGenerator(4321).next(packages);
    record.set(C::IDCustomer, BenchCustomer);
    record.set(C::F00007, Order);
    record.set(C::F00159, key);
    record.set(C::InDustBox, false);
    const qint64 id = insertDeliveryRecord(database, record);
    restore(database, id, 0);
    return id;
}

// What the form hands over for the record as it is stored now: 400 of its 1,000 move.
DeliverySplit splitOf(db::Database& database, qint64 id, const QString& key)
{
    return {id,
            BenchCustomer,
            Order,
            key,
            Currency::fromInteger(1000),
            Currency::fromInteger(400),
            key + u"-B"_s,
            readDeliveryRecord(database, id),
            readPackageRows(database, id)};
}

// Microseconds per split, `count` splits a sample, each after an untimed restore; the sides take turns.
template <typename Ours, typename Raw> bench::Medians compare(int rounds, int count, Ours&& ours, Raw&& raw)
{
    const auto sample = [count](auto& side) {
        return [&side, count](std::vector<double>& samples) {
            double total = 0;
            for (int i = 0; i < count; ++i)
                total += side();
            samples.push_back(total * 1000.0 / count);
        };
    };
    return bench::alternate(rounds, sample(ours), sample(raw));
}

int measure(const QString& source, const QString& file)
{
    QSqlDatabase connection = QSqlDatabase::addDatabase(u"QSQLITE"_s, file);
    connection.setDatabaseName(file);
    if (!connection.open()) {
        std::fprintf(stderr, "%s\n", qPrintable(connection.lastError().text()));
        return 1;
    }
    db::Database ours(connection);
    const qint64 oursId = addRecord(ours, u"OURS"_s), rawId = addRecord(ours, u"RAW"_s);
    const DeliverySplit rawRequest = splitOf(ours, rawId, u"RAW"_s);
    QStringList columns;
    {
        db::Statement read = ours.prepare(deliveryRecordSql());
        read.bind(0, rawId).exec();
        columns = read.columnNames();
    } // done before any write, so that it holds no lock
    RawSplit raw(file.toStdString(), splitPlan(ours.dialect(), rawRequest, columns, *rawRequest.shown),
                 rawId);

    qint64 oursAdded = 0, rawAdded = 0;
    std::size_t sink = 0;
    const auto splitOurs = [&] {
        restore(ours, oursId, std::exchange(oursAdded, 0));
        const DeliverySplit request = splitOf(ours, oursId, u"OURS"_s);
        return bench::millisecondsOf([&] {
            db::Transaction transaction(ours, db::Transaction::Kind::Write);
            const SplitResult result = splitDelivery(ours, transaction, request);
            if (result.outcome != SaveOutcome::Saved)
                throw std::runtime_error("not split");
            oursAdded = result.newId;
        });
    };
    const auto splitRaw = [&] {
        restore(ours, rawId, std::exchange(rawAdded, 0));
        return bench::millisecondsOf([&] { rawAdded = raw.split(); });
    };

    const qint64 rows = ours.scalar(u"SELECT COUNT(*) FROM T_Delivery"_s)->toLongLong();
    std::printf("%s: %lld records (copy)\n  %-40s %9s %9s %8s\n", qPrintable(source),
                static_cast<long long>(rows), "operation (median per call)", "ours us", "raw us", "ours/raw");
    const auto print = [](const char* operation, const bench::Medians& m) {
        std::printf("  %-40s %9.2f %9.2f %8.2f\n", operation, m.ours, m.raw, m.ours / m.raw);
    };
    print("split, 100 packages (the file's sync)", compare(11, 10, splitOurs, splitRaw));
    ours.execute(u"PRAGMA synchronous = OFF"_s);
    raw.execute("PRAGMA synchronous = OFF");
    print("split, 100 packages (no sync)", compare(11, 40, splitOurs, splitRaw));
    sink += std::size_t(oursAdded + rawAdded);
    std::printf("  (checksum %zu)\n", sink);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    return bench::measureCopies(argc, argv, "tolvinpt-bench-split", measure);
}
