// The save and the order search on every engine: what a save writes and clears, the duplicate guard
// (also between processes racing for one key), a row another connection changed, engine faults, a
// read-only role, hostile texts.
#include "platform/sql/jet_like.h"
#include "platform/values/decimal.h"
#include "store/delivery_save.h"
#include "store/delivery_writes.h"
#include "tests/support/temp_database.h"
#include "tests/support/thrown.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>

using namespace Qt::StringLiterals;
using namespace tolvinpt;
using C = tolvinpt::DeliveryColumn;

namespace {

QString valueOf(const DeliveryColumnInfo& info)
{
    return info.name + u"値"_s;
}

// A new record with every column the detail save writes, each a value of its own, as the form hands them
// over (quantities as the form's text, an empty field, an empty date).
DeliverySave newRecord(qint64 customer, const QString& order, const QString& key)
{
    DeliveryRecord detail;
    for (const DeliveryColumnInfo& info : deliveryColumns()) {
        if (info.writer == Writer::DetailSave && info.type == ColumnType::Text)
            detail.set(info.column, valueOf(info));
    }
    // clang-format off
    const std::pair<C, QVariant> values[] = {
        {C::IDCustomer, customer}, {C::F00007, order}, {C::F00159, key}, {C::F00029, QString()},
        {C::F00031, QDate(2005, 3, 10)}, {C::F00039, QDate()}, {C::F00040, QDate(9999, 12, 31)},
        {C::F00015, u"999999999.999"_s}, {C::F00032, 0.001}, {C::F00036, u"-12.5"_s}, {C::F00057, 2},
        {C::F00013, u"0"_s}, {C::F00282, u"99999999999.99999"_s}};
    // clang-format on
    for (const auto& [column, value] : values)
        detail.set(column, value);
    DeliverySave save;
    save.isNew = true;
    save.detail = detail;
    save.key = {customer, order, key};
    return save;
}

DeliverySave::Packages individual(std::initializer_list<int> quantities, const QString& quantity = u"12.5"_s)
{
    DeliverySave::Packages packages{PackageMode::Individual, quantity, {}};
    std::size_t i = 0;
    for (const int q : quantities)
        packages.quantities[i++] = Currency::fromInteger(q);
    return packages;
}

std::vector<std::optional<Currency>> currencies(std::initializer_list<int> values)
{
    std::vector<std::optional<Currency>> result;
    for (const int v : values)
        result.push_back(Currency::fromInteger(v));
    return result;
}

qint64 count(db::Database& database, const QString& table)
{
    return database.scalar(u"SELECT COUNT(*) FROM "_s + table)->toLongLong();
}

class Save : public testing::TestWithParam<test::Backend>
{
protected:
    Save() : temp(test::TempDatabase::Schema::Delivery, GetParam()) {}
    db::Database& db() { return temp.db(); }

    // A stored record as the form shows it: printed, packed in 3 and 4.
    DeliverySave stored(qint64 customer, const QString& order, const QString& key)
    {
        DeliverySave save = newRecord(customer, order, key);
        save.packages = individual({3, 4});
        save.id = saveDelivery(db(), save).id;
        db().execute(u"UPDATE T_Delivery SET DateDeliveryPrint = '2005-03-10 09:00:00', "
                     u"DateLabelPrint = '2005-03-11 10:00:00' WHERE IDData = ?"_s,
                     {save.id});
        save.isNew = false;
        save.packages.reset();
        save.shown = readDeliveryRecord(db(), save.id);
        save.shownPackages = readPackageRows(db(), save.id);
        return save;
    }
    void clear()
    {
        db().execute(u"DELETE FROM T_Delivery"_s);
        db().execute(u"DELETE FROM T_DeliveryQTY"_s);
    }

    test::TempDatabase temp;
};

TEST_P(Save, EveryDetailColumnReadsBackAsTheFormShowedIt)
{
    DeliverySave save = newRecord(7, u"ORD-1"_s, u"KEY-1"_s);
    const SaveResult result = saveDelivery(db(), save);
    ASSERT_EQ(result.outcome, SaveOutcome::Saved);
    const auto read = readDeliveryRecord(db(), result.id);
    for (const DeliveryColumnInfo& info : deliveryColumns()) {
        if (info.writer == Writer::DetailSave && info.type == ColumnType::Text &&
            !QStringView(u"F00007 F00159 F00029").contains(info.name)) {
            EXPECT_EQ(read->text(info.column), valueOf(info));
        }
    }
    EXPECT_EQ(read->integer(C::IDCustomer), 7);
    EXPECT_EQ(read->text(C::F00007).value() + read->text(C::F00159).value(), u"ORD-1KEY-1"_s);
    EXPECT_EQ(read->text(C::F00029), u""_s); // empty text, not Null
    EXPECT_EQ(read->date(C::F00031), QDate(2005, 3, 10));
    EXPECT_TRUE(read->isNull(C::F00039));
    EXPECT_EQ(read->date(C::F00040), QDate(9999, 12, 31));
    // Quantities show again as typed; exact decimals stay their text.
    const auto shown = [&](C column) {
        return Decimal::fromDouble(read->number(column).value())->toString();
    };
    EXPECT_EQ(shown(C::F00015) + u' ' + shown(C::F00032) + u' ' + shown(C::F00036),
              u"999999999.999 0.001 -12.5"_s);
    EXPECT_EQ(read->integer(C::F00057), 2);
    EXPECT_EQ(read->decimal(C::F00013), u"0"_s);
    EXPECT_EQ(read->decimal(C::F00282), u"99999999999.99999"_s);
    EXPECT_EQ(read->boolean(C::InDustBox), false);
    EXPECT_TRUE(read->isNull(C::QuantityType)); // no package data given
    EXPECT_EQ(count(db(), u"T_DeliveryQTY"_s), 0);

    // Saved again from what the save returned; once more from the same, it is its own earlier save.
    save.isNew = false;
    save.id = result.id;
    save.shown = result.stored;
    save.shownPackages = result.storedPackages;
    save.packages = individual({1});
    EXPECT_EQ(saveDelivery(db(), save).outcome, SaveOutcome::Saved);
    EXPECT_EQ(saveDelivery(db(), save).outcome, SaveOutcome::ChangedByOther);
}

// Each write clears the print date that it makes stale, and only that one.
TEST_P(Save, PackageRowsAreRewrittenPerModeAndPrintDatesCleared)
{
    using P = DeliverySave::Packages;
    const struct
    {
        bool detail;
        std::optional<P> packages;
        std::vector<std::optional<Currency>> rows;
        std::optional<qint64> quantityType;
        QString quantity;
        bool deliveryPrinted, labelPrinted;
    } cases[] = {
        // clang-format off
        {true, std::nullopt, currencies({3, 4}), 3, u"12.5"_s, false, true},
        {false, individual({10, 0, 5}), currencies({10}), 3, u"12.5"_s, true, false},
        {true, individual({1, 2, 3}, u"0.0001"_s), currencies({1, 2, 3}), 3, u"0.0001"_s, false, false},
        {false, P{PackageMode::Equal, u"922337203685477.5807"_s, {}}, {}, 2, u"922337203685477.5807"_s, true, false},
        {false, P{PackageMode::Single, u"7"_s, {Currency::fromInteger(9)}}, {}, 1, u"7"_s, true, false},
        // clang-format on
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.quantity.toStdString());
        DeliverySave save = stored(7, u"ORD"_s, u"KEY"_s);
        if (!c.detail)
            save.detail.reset();
        save.packages = c.packages;
        ASSERT_EQ(saveDelivery(db(), save).outcome, SaveOutcome::Saved);
        const auto read = readDeliveryRecord(db(), save.id);
        EXPECT_EQ(readPackageRows(db(), save.id).quantities, c.rows);
        EXPECT_EQ(read->integer(C::QuantityType), c.quantityType);
        EXPECT_EQ(read->decimal(C::Quantity), c.quantity);
        EXPECT_EQ(!read->isNull(C::DateDeliveryPrint), c.deliveryPrinted);
        EXPECT_EQ(!read->isNull(C::DateLabelPrint), c.labelPrinted);
        clear();
    }
    // Package data of a record never stored goes under IDData 0, and no row is created for it.
    DeliverySave packagesOnly;
    packagesOnly.isNew = true;
    packagesOnly.packages = individual({5, 6});
    EXPECT_EQ(saveDelivery(db(), packagesOnly).id, 0);
    EXPECT_EQ(count(db(), u"T_Delivery"_s), 0);
    EXPECT_EQ(readPackageRows(db(), 0).quantities, currencies({5, 6}));
}

// The lookup's own rules (letter case, waste box, blanks, customer) are those of findLiveRecordByOrderKey.
TEST_P(Save, AnOrderKeyHeldByAnotherLiveRecordIsRefused)
{
    saveDelivery(db(), newRecord(7, u"ORD-1"_s, u"KEY-1"_s));
    const qint64 waste = saveDelivery(db(), newRecord(7, u"ORD-W"_s, u"KEY-W"_s)).id;
    db().execute(u"UPDATE T_Delivery SET InDustBox = NOT InDustBox WHERE IDData = ?"_s, {waste});
    const qint64 b = saveDelivery(db(), newRecord(7, u"ORD-B"_s, u"KEY-B"_s)).id;
    const struct
    {
        const char* name;
        QString order, key;
        bool asB, detail;
        SaveOutcome outcome;
        QString orderOfB;
    } cases[] = {
        {"new, letter case", u"ord-1"_s, u"key-1"_s, false, true, SaveOutcome::DuplicateKey, u"ORD-B"_s},
        {"another record's", u"ORD-1"_s, u"KEY-1"_s, true, true, SaveOutcome::DuplicateKey, u"ORD-B"_s},
        {"package data only", u"ORD-1"_s, u"KEY-1"_s, true, false, SaveOutcome::Saved, u"ORD-B"_s},
        {"in the waste box", u"ORD-W"_s, u"KEY-W"_s, false, true, SaveOutcome::Saved, u"ORD-B"_s},
        {"own key, case changed", u"ord-b"_s, u"Key-B"_s, true, true, SaveOutcome::Saved, u"ord-b"_s},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        DeliverySave save = newRecord(7, c.order, c.key);
        save.isNew = !c.asB;
        save.id = c.asB ? b : 0;
        if (!c.detail)
            save.detail.reset();
        save.packages = individual({1});
        const qint64 rows = count(db(), u"T_Delivery"_s), packages = count(db(), u"T_DeliveryQTY"_s);
        EXPECT_EQ(saveDelivery(db(), save).outcome, c.outcome);
        const bool saved = c.outcome == SaveOutcome::Saved;
        EXPECT_EQ(count(db(), u"T_Delivery"_s), rows + (saved && !c.asB ? 1 : 0));
        if (!saved) {
            EXPECT_EQ(count(db(), u"T_DeliveryQTY"_s), packages);
        }
        EXPECT_EQ(readDeliveryRecord(db(), b)->text(C::F00007), c.orderOfB);
    }
}

// What another operator does between the display and the save: a change of what the form shows stops
// the save; printing and the waste box do not.
TEST_P(Save, ARowChangedOrDeletedMeanwhileIsNotOverwritten)
{
    const std::pair<QString, SaveOutcome> cases[] = {
        {u"SELECT 1"_s, SaveOutcome::Saved},
        {u"UPDATE T_Delivery SET F00022 = lower(F00022)"_s, SaveOutcome::ChangedByOther},
        {u"UPDATE T_Delivery SET F00036 = F00036 + 0.001"_s, SaveOutcome::ChangedByOther},
        {u"UPDATE T_Delivery SET F00031 = NULL"_s, SaveOutcome::ChangedByOther},
        {u"UPDATE T_Delivery SET QuantityType = 2"_s, SaveOutcome::ChangedByOther},
        {u"UPDATE T_Delivery SET F00002 = '9999'"_s, SaveOutcome::ChangedByOther},
        {u"UPDATE T_DeliveryQTY SET Quantity = '5' WHERE Sequence = 2"_s, SaveOutcome::ChangedByOther},
        {u"UPDATE T_Delivery SET DateDeliveryPrint = '2006-01-01', DateLabelPrint = NULL"_s,
         SaveOutcome::Saved},
        {u"UPDATE T_Delivery SET InDustBox = NOT InDustBox"_s, SaveOutcome::Saved},
        {u"DELETE FROM T_Delivery"_s, SaveOutcome::DeletedByOther},
    };
    for (const auto& [sql, outcome] : cases) {
        SCOPED_TRACE(sql.toStdString());
        DeliverySave save = stored(7, u"ORD"_s, u"KEY"_s);
        test::SecondConnection(temp, {sql});
        const auto before = readDeliveryRecord(db(), save.id);
        const auto beforePackages = readPackageRows(db(), save.id);
        save.detail->set(C::F00022, u"ours"_s);
        save.packages = individual({9});
        EXPECT_EQ(saveDelivery(db(), save).outcome, outcome);
        const auto after = readDeliveryRecord(db(), save.id);
        if (outcome == SaveOutcome::Saved) {
            EXPECT_EQ(after->text(C::F00022), u"ours"_s);
            EXPECT_EQ(readPackageRows(db(), save.id).quantities, currencies({9}));
        } else {
            EXPECT_EQ(after ? after->text(C::F00022) : std::nullopt,
                      before ? before->text(C::F00022) : std::nullopt);
            EXPECT_EQ(readPackageRows(db(), save.id), beforePackages);
        }
        clear();
    }
}

// Engine failures in the middle of a save, for an existing and a new record: the engine's number, nothing
// written, and the connection saves normally afterwards. A read-only file or role reads and saves nothing.
TEST_P(Save, AFailedSaveLeavesTheDatabaseAsItWas)
{
    const bool sqlite = temp.engine() == test::Engine::SQLite;
    const struct
    {
        const char* name;
        std::function<std::unique_ptr<test::SecondConnection>()> fault; // lives through the save
        QString options;                              // of the saving connection
        long number;
        bool readOnly = false;
    } cases[] = {
        {"a trigger aborts the package rows",
         [&] {
             temp.refuseWrites(u"INSERT"_s, u"T_DeliveryQTY"_s, u"packages refused"_s);
             return nullptr;
         },
         {},
         temp.refusedError({}).number},
        {"a read-only file or role", [] { return nullptr; }, sqlite ? u"QSQLITE_OPEN_READONLY"_s : QString(),
         sqlite ? 8 : 42501, true},
        {"another writer past the busy timeout",
         [&] {
             return std::make_unique<test::SecondConnection>(temp,
                                                             std::initializer_list{u"BEGIN IMMEDIATE"_s});
         },
         sqlite ? u"QSQLITE_BUSY_TIMEOUT=50"_s : u"options='-c lock_timeout=50'"_s,
         temp.lockedError().number},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        DeliverySave save = stored(7, u"ORD"_s, u"KEY"_s);
        save.detail->set(C::F00022, u"ours"_s);
        save.packages = individual({9});
        const QString user = c.readOnly && !sqlite ? temp.readOnlyUser() : QString();
        test::SecondConnection saving(temp.address(), c.options, user, GetParam().path);
        if (c.readOnly) {
            EXPECT_EQ(readDeliveryRecord(saving.db(), save.id)->text(C::F00022), u"F00022値"_s);
        }
        {
            const auto fault = c.fault();
            for (DeliverySave attempt : {save, newRecord(7, u"NEW"_s, u"NEW"_s)}) {
                attempt.packages = individual({9});
                const auto error =
                    test::thrown<db::DatabaseError>([&] { saveDelivery(saving.db(), attempt); });
                EXPECT_EQ(error.number, c.number) << error.description.toStdString();
            }
        }
        temp.allowWrites(u"T_DeliveryQTY"_s);
        EXPECT_EQ(count(db(), u"T_Delivery"_s), 1);
        const auto after = readDeliveryRecord(db(), save.id);
        EXPECT_EQ(after->text(C::F00022), u"F00022値"_s);
        EXPECT_FALSE(after->isNull(C::DateDeliveryPrint));
        EXPECT_EQ(readPackageRows(db(), save.id), *save.shownPackages);
        if (!c.readOnly) {
            EXPECT_EQ(saveDelivery(saving.db(), save).outcome, SaveOutcome::Saved);
            EXPECT_EQ(readPackageRows(db(), save.id).quantities, currencies({9}));
        }
        clear();
    }
}

// The search: the pattern's wildcards and nothing more, letter case ignored, waste box included, the
// smallest delivery key number first. The keys sort the decoys first.
TEST_P(Save, TheOrderSearchMatchesWhatThePatternMeans)
{
    const std::tuple<qint64, QString, QString> rows[] = {
        {7, u"WB-1"_s, u"K00"_s}, {8, u"AB1"_s, u"K00"_s},  {7, u"AB1"_s, u"K01"_s}, {7, u"A%1"_s, u"K02"_s},
        {7, u"A_1"_s, u"K03"_s},  {7, u"A\"1"_s, u"K04"_s}, {7, u"a*1"_s, u"K05"_s}, {7, u"A[1"_s, u"K06"_s},
        {7, u"A\\1"_s, u"K07"_s}, {7, u"A11"_s, u"K08"_s},
    };
    for (const auto& [customer, order, key] : rows)
        saveDelivery(db(), newRecord(customer, order, key));
    db().execute(u"UPDATE T_Delivery SET InDustBox = NOT InDustBox WHERE F00007 = 'WB-1'"_s);
    const std::pair<QString, std::optional<QString>> cases[] = {
        {u"A%1"_s, u"K02"_s},   {u"a%1"_s, u"K02"_s},   {u"A_1"_s, u"K03"_s},   {u"A\"1"_s, u"K04"_s},
        {u"A[*]1"_s, u"K05"_s}, {u"A[[]1"_s, u"K06"_s}, {u"A\\1"_s, u"K07"_s},  {u"A*1"_s, u"K01"_s},
        {u"A?1"_s, u"K01"_s},   {u"A#1"_s, u"K08"_s},   {u"WB-1"_s, u"K00"_s},  {u"*"_s, u"K00"_s},
        {u"ab1"_s, u"K01"_s},   {u"%"_s, std::nullopt}, {u"A"_s, std::nullopt}, {u"A1"_s, std::nullopt},
    };
    for (const auto& [pattern, key] : cases) {
        const auto found = findOrderRecord(db(), 7, pattern);
        EXPECT_EQ(found ? found->text(C::F00159) : std::nullopt, key) << pattern.toStdString();
    }
    EXPECT_THROW(findOrderRecord(db(), 7, u"A[1"_s), db::DatabaseError); // a set without its end
}

// Texts that break statements built by joining values, and texts around the edges of letter folding and
// of Unicode: saved and read back unchanged, a duplicate of themselves, and searched through the index
// range on a pattern's literal start with the same result as matching every row.
TEST_P(Save, HostileTextsRoundTripAndTheSearchRangeLosesNoMatch)
{
    // clang-format off
    const QString texts[] = {
        u"\"'"_s, u"x'); DELETE FROM T_Delivery; --"_s, u"[A]"_s, u"A?1"_s, u"A#1"_s, QString(1000, u'ｱ'),
        u"\u200Fאב\u200E12"_s, u"😀絵文字"_s, QString::fromUtf16(u"A\0B", 3), u" A "_s, u"@"_s, u"@z"_s,
        u"AZ"_s, u"Az{"_s, u"["_s, u"`"_s, u"z"_s, u"Z~"_s, u"{"_s, u"\u007F"_s, u"é"_s, u"É"_s, u"Ａ"_s,
        u"ａ"_s, u"\U0010FFFF"_s, u"\U0010FFFFa"_s, u"\uD7FF"_s, u"\uE000"_s, u""_s};
    // clang-format on
    std::vector<std::pair<QString, QString>> rows; // order, key
    for (const QString& text : texts) {
        const QString key = u"K"_s + QString::number(rows.size() + 10);
        DeliverySave save = newRecord(7, text, key);
        save.detail->set(C::F00022, text);
        if (text.contains(QChar(0)) && temp.engine() == test::Engine::PostgreSQL) {
            EXPECT_THROW(saveDelivery(db(), save), db::DatabaseError); // the server's text holds no NUL
            continue;
        }
        const auto read = readDeliveryRecord(db(), saveDelivery(db(), save).id);
        EXPECT_EQ(read->text(C::F00007), text);
        EXPECT_EQ(read->text(C::F00022), text);
        EXPECT_EQ(saveDelivery(db(), newRecord(7, text, key)).outcome, SaveOutcome::DuplicateKey) << text.left(20).toStdString();
        rows.emplace_back(text, key);
    }
    QStringList patterns;
    for (const QString& text : texts) {
        const QList<uint> first = text.toUcs4().mid(0, 1);
        const QString start =
            QString::fromUcs4(reinterpret_cast<const char32_t*>(first.constData()), first.size());
        patterns << text << text + u"*"_s << text.toUpper() << start + u"?"_s << start + u"*"_s;
    }
    for (const QString& pattern : patterns) {
        SCOPED_TRACE(pattern.left(20).toStdString());
        if (!db::LikePattern::compile(pattern)) {
            EXPECT_THROW(findOrderRecord(db(), 7, pattern), db::DatabaseError);
            continue;
        }
        std::optional<QString> expected;
        for (const auto& [order, key] : rows) {
            if (db::likeMatches(pattern, order) == true && (!expected || key < *expected))
                expected = key;
        }
        const auto found = findOrderRecord(db(), 7, pattern);
        EXPECT_EQ(found ? found->text(C::F00159) : std::nullopt, expected);
    }
}

INSTANTIATE_TEST_SUITE_P(Db, Save, test::allBackends(), test::backendName);

// Three programs save new records with the same keys at the same moments: each key is saved exactly
// once, whole, and every other attempt is told it is a duplicate. This program starts the other two.
constexpr int RaceRounds = 60;

QString raceOutcomes(const QString& address)
{
    test::SecondConnection racer(address);
    QString outcomes;
    for (int round = 0; round < RaceRounds; ++round) {
        DeliverySave save = newRecord(7, u"RACE"_s, QString::number(round));
        save.packages = individual({1, 2, 3});
        outcomes += saveDelivery(racer.db(), save).outcome == SaveOutcome::Saved ? u'S' : u'D';
    }
    return outcomes;
}

TEST(SaveRace, Racer)
{
    const QString address = qEnvironmentVariable("TOLVINPT_RACE_DATABASE");
    if (address.isEmpty())
        GTEST_SKIP() << "run by Race.ExactlyOneWinsEachKey";
    std::printf("ready\n");
    std::fflush(stdout);
    while (!QFile::exists(qEnvironmentVariable("TOLVINPT_RACE_GO")))
        QThread::msleep(1);
    std::printf("outcomes:%s\n", qPrintable(raceOutcomes(address)));
}

class Race : public testing::TestWithParam<test::Backend>
{
};

TEST_P(Race, ExactlyOneWinsEachKey)
{
    test::TempDatabase temp(test::TempDatabase::Schema::Delivery, GetParam());
    QTemporaryDir dir;
    const QString goFile = dir.filePath(u"go"_s);
    std::vector<std::unique_ptr<QProcess>> racers;
    for (int i = 0; i < 2; ++i) {
        auto& racer = racers.emplace_back(std::make_unique<QProcess>());
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"TOLVINPT_RACE_DATABASE"_s, temp.address());
        environment.insert(u"TOLVINPT_RACE_GO"_s, goFile);
        racer->setProcessEnvironment(environment);
        racer->start(QCoreApplication::applicationFilePath(), {u"--gtest_filter=SaveRace.Racer"_s});
        while (racer->state() != QProcess::NotRunning && !racer->readAllStandardOutput().contains("ready"))
            racer->waitForReadyRead(100);
    }
    QFile go(goFile);
    ASSERT_TRUE(go.open(QIODevice::WriteOnly));
    std::vector<QString> outcomes{raceOutcomes(temp.address())};
    for (const auto& racer : racers) {
        ASSERT_TRUE(racer->waitForFinished(60000));
        const QString output = QString::fromUtf8(racer->readAllStandardOutput());
        ASSERT_TRUE(output.contains(u"outcomes:"_s)) << output.toStdString();
        outcomes.push_back(output.mid(output.indexOf(u"outcomes:"_s) + 9, RaceRounds));
    }
    for (int round = 0; round < RaceRounds; ++round) {
        int winners = 0;
        for (const QString& o : outcomes)
            winners += round < o.size() && o[round] == u'S';
        EXPECT_EQ(winners, 1) << "round " << round;
        const auto id = findLiveRecordByOrderKey(temp.db(), 7, u"RACE"_s, QString::number(round));
        ASSERT_TRUE(id);
        EXPECT_EQ(readDeliveryRecord(temp.db(), *id)->text(C::F00022), u"F00022値"_s);
        EXPECT_EQ(readPackageRows(temp.db(), *id).quantities, currencies({1, 2, 3}));
    }
    EXPECT_EQ(count(temp.db(), u"T_DeliveryQTY"_s), 3 * RaceRounds);
}

INSTANTIATE_TEST_SUITE_P(Db, Race, test::bothEngines(), test::backendName);

} // namespace
