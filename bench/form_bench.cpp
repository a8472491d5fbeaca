// Measures the entry form against the sqlite3 C API reads behind it, in the same run:
//   tolvinpt-bench-form FILE   (a database made by tolvinpt-bench-generate; QT_QPA_PLATFORM=offscreen)
// 1. ShowDeliveryRecord on one shown form, record after record, with the repaint it causes, against
//    reading the same record row (every column copied out) and its package rows and the same repaint.
// 2. PrepareRecordList on lists of 2,500, 10,000 and 40,000 records (everything InputData does before
//    the modal show) against reading the same delivery keys in one transaction; a QMenu with one action
//    per record, as the record list used to be, is timed once beside it.
// The baselines open the file with the flags Qt's own connection has (raw_sqlite.h).
#include "bench/counted_messages.h"
#include "bench/raw_form_reads.h"
#include "bench/raw_sqlite.h"
#include "bench/timing.h"
#include "component/entry_procedure.h"
#include "component/state.h"
#include "forms/frmData/record_display.h"
#include "forms/frmData/record_list_menu.h"
#include "platform/widgets/messages.h"
#include "store/delivery_reads.h"
#include "tests/support/fake_host.h"

#include <tolvinpt/fmInput.h>

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QSqlError>

#include <algorithm>
#include <cstdio>
#include <random>

using namespace Qt::StringLiterals;
using namespace tolvinpt;

namespace {

constexpr int DisplayRecords = 2000;
constexpr int DisplayRounds = 5;
constexpr int ListLengths[] = {2500, 10000, 40000};
constexpr int ListRounds = 5;
constexpr double DisplayTargetMs = 5;
constexpr double ListTargetMs = 300;    // for the longest list
constexpr double LinearTolerance = 1.5; // per-entry cost of the longest list against the shortest

// The generator's 40 buyers: ids 1 to 40, codes C00001 to C00040.
void registerBuyers(test::FakeHostData& host)
{
    for (int id = 1; id <= 40; ++id) {
        test::FakeCustomerData buyer;
        buyer.id = id;
        buyer.code = u"C"_s + QString::number(id).rightJustified(5, u'0');
        buyer.name = u"得意先"_s + QString::number(id);
        host.customers.append(buyer);
    }
    test::registerFakeHost(host);
}

std::vector<qint64> randomLiveIds(db::Database& database, std::mt19937_64& random)
{
    const qint64 maxId = database.scalar(u"SELECT MAX(IDData) FROM T_Delivery"_s)->toLongLong();
    std::vector<qint64> ids;
    while (ids.size() < DisplayRecords) {
        const qint64 id = std::uniform_int_distribution<qint64>(1, maxId)(random);
        const auto record = readDeliveryRecord(database, id);
        if (record && !record->boolean(DeliveryColumn::InDustBox).value_or(true))
            ids.push_back(id);
    }
    return ids;
}

// Distinct existing ids in random order, live or not: a host lists what its search found.
std::vector<qint64> randomExistingIds(db::Database& database, std::mt19937_64& random)
{
    std::vector<qint64> ids;
    db::Statement all = database.prepare(u"SELECT IDData FROM T_Delivery"_s);
    all.exec();
    while (all.next())
        ids.push_back(all.value(0).toLongLong());
    std::shuffle(ids.begin(), ids.end(), random);
    return ids;
}

void printRow(const char* operation, double ours, double raw, const char* unit)
{
    std::printf("  %-40s %10.3f %10.3f %8.2f   (%s)\n", operation, ours, raw, ours / raw, unit);
}

// Returns whether the display target is met.
bool benchmarkDisplay(bench::RawFormReads& raw, const std::vector<qint64>& ids, std::size_t& sink)
{
    EntryCall call;
    FillCustomerCombo(call.form, *call.customers);
    call.form.show();
    QCoreApplication::processEvents();
    const auto* idField = call.form.control<QLineEdit>(u"txtIDData"_s);

    // The operator waits for the paint too: the offscreen platform paints into a backing store.
    const auto ours = [&](std::vector<double>& samples) {
        for (const qint64 id : ids) {
            samples.push_back(bench::millisecondsOf([&] {
                ShowDeliveryRecord(call.form, call.store(), *call.customers, id);
                call.form.repaint();
            }));
            sink += idField->text().toLongLong() == id;
        }
    };
    const auto rawReads = [&](std::vector<double>& samples) {
        for (const qint64 id : ids) {
            samples.push_back(bench::millisecondsOf([&] {
                sink += raw.readRecordAndPackages(id);
                call.form.repaint();
            }));
        }
    };
    const bench::Medians m = bench::alternate(DisplayRounds, ours, rawReads);
    printRow("ShowDeliveryRecord+paint / reads+paint", m.ours * 1000, m.raw * 1000, "us per record");
    return m.ours < DisplayTargetMs;
}

// The median of PrepareRecordList on `ids` in ms; prints it against the baseline.
double benchmarkRecordList(bench::RawFormReads& raw, const std::vector<qint64>& ids, std::size_t& sink)
{
    Items items;
    std::vector<QString> keys;
    for (const qint64 id : ids) {
        keys.push_back(QString::number(id) + u"Key"_s);
        items.Add(keys.back());
    }

    const auto ours = [&](std::vector<double>& samples) {
        std::unique_ptr<EntryCall> call;
        samples.push_back(bench::millisecondsOf([&] { call = PrepareRecordList(items); }));
        sink += static_cast<std::size_t>(call->form.recordList()->count());
    };
    // The floor: the same keys read in one transaction, each with its text, in list order.
    const auto keysAlone = [&](std::vector<double>& samples) {
        std::vector<std::pair<QString, QString>> entries;
        samples.push_back(bench::millisecondsOf([&] {
            const auto read = raw.readDeliveryKeys(ids);
            entries.reserve(ids.size());
            for (std::size_t i = 0; i < ids.size(); ++i)
                entries.emplace_back(keys[i], QString::fromStdString(read[i].value()));
        }));
        sink += entries.size();
    };
    const bench::Medians m = bench::alternate(ListRounds, ours, keysAlone);
    char label[64];
    std::snprintf(label, sizeof label, "PrepareRecordList, %zu / keys", ids.size());
    printRow(label, m.ours, m.raw, "ms per list");
    std::printf("  %-40s %10.3f %10s %8s   (%s)\n", "  per entry", m.ours * 1000 / double(ids.size()), "", "",
                "us");

    // What a QMenu with one action per record costs for the same list (the record list used to be one).
    QMenu menu;
    const double actions = bench::millisecondsOf([&] {
        for (std::size_t i = 0; i < ids.size(); ++i)
            menu.addAction(keys[i])->setData(keys[i]);
    });
    std::printf("  %-40s %10.3f %10s %8s   (%s)\n", "  a QMenu action per entry, once", actions, "", "",
                "ms");
    return m.ours;
}

// Returns whether the record-list targets are met: the longest list in time, and linear growth.
bool benchmarkRecordLists(bench::RawFormReads& raw, const std::vector<qint64>& existing, std::size_t& sink)
{
    std::vector<std::pair<std::size_t, double>> perLength;
    for (const int length : ListLengths) {
        if (existing.size() < std::size_t(length))
            break;
        const std::vector<qint64> ids(existing.begin(), existing.begin() + length);
        perLength.emplace_back(ids.size(), benchmarkRecordList(raw, ids, sink));
    }
    std::vector<double> loads;
    for (int round = 0; round < ListRounds; ++round)
        loads.push_back(bench::millisecondsOf([] { EntryCall call; }));
    std::printf("  %-40s %10.3f %10s %8s   (%s)\n", "loading the form alone", bench::median(loads), "", "",
                "ms");

    const auto [shortest, shortestMs] = perLength.front();
    const auto [longest, longestMs] = perLength.back();
    const double growth = (longestMs / double(longest)) / (shortestMs / double(shortest));
    std::printf("  per-entry cost, %zu against %zu entries: %.2fx\n", longest, shortest, growth);
    return growth < LinearTolerance && (longest < 40000 || longestMs < ListTargetMs);
}

int benchmark(const QString& file)
{
    QSqlDatabase connection = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"bench"_s);
    connection.setDatabaseName(file);
    if (!connection.open()) {
        std::fprintf(stderr, "%s\n", qPrintable(connection.lastError().text()));
        return 1;
    }
    test::FakeHostData host;
    host.connectionName = connection.connectionName();
    registerBuyers(host);
    bench::CountedMessages messages;
    installMessageService(&messages);
    fmInput component; // the company settings, gDB and the customer list, as a host's call has them

    std::vector<qint64> liveIds, listIds;
    qint64 rows = 0;
    {
        db::Database database(connection);
        rows = database.scalar(u"SELECT COUNT(*) FROM T_Delivery"_s)->toLongLong();
        std::mt19937_64 random(7);
        liveIds = randomLiveIds(database, random);
        listIds = randomExistingIds(database, random);
    }
    bench::RawFormReads raw(file.toStdString(), deliveryRecordSql().toStdString(),
                            packageRowsSql().toStdString());
    std::size_t sink = 0;

    std::printf("%s: %lld records (baselines opened %s a connection mutex, as Qt's)\n  %-40s %10s %10s %8s\n",
                qPrintable(file), static_cast<long long>(rows),
                bench::qtOpensWithoutMutex() ? "without" : "with", "operation (median): ours / raw", "ours",
                "raw", "ours/raw");
    const bool displayMet = benchmarkDisplay(raw, liveIds, sink);
    const bool listMet = benchmarkRecordLists(raw, listIds, sink);
    std::printf("  display under %.0f ms: %s; record lists linear (and 40,000 under %.0f ms): %s\n",
                DisplayTargetMs, displayMet ? "met" : "MISSED", ListTargetMs, listMet ? "met" : "MISSED");
    std::printf("  (message boxes and beeps: %d; checksum %zu)\n", messages.shown, sink);
    installMessageService(nullptr);
    RegisterHostObjects(nullptr);
    gDB = QSqlDatabase(); // closes the connection before the statics of the database layer go
    return messages.shown == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    if (app.arguments().size() != 2) {
        std::fprintf(stderr, "usage: %s FILE\n", argv[0]);
        return 2;
    }
    try {
        return benchmark(app.arguments().at(1));
    } catch (const db::DatabaseError& e) {
        std::fprintf(stderr, "%s\n", qPrintable(e.operatorText()));
    } catch (const Error& e) {
        std::fprintf(stderr, "%s (%ld)\n", qPrintable(e.description()), static_cast<long>(e.number()));
    }
    return 1;
}
