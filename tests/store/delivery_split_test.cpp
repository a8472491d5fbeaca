// The split on real SQLite files: the package rules of both halves, the copy of every column (the
// host's own too), the refusals that write nothing, a failure that leaves its transaction to the caller,
// and random records split at random.
#include "platform/transaction.h"
#include "store/delivery_split.h"
#include "store/delivery_writes.h"
#include "tests/support/temp_database.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <random>

using namespace Qt::StringLiterals;
using namespace tolvinpt;
using C = tolvinpt::DeliveryColumn;
using Path = tolvinpt::db::Database::StatementPath;

namespace {

constexpr qint64 Buyer = 7;

Currency currency(const QString& text)
{
    return Currency::fromString(text).value();
}

// The columns a split sets; every other one the new record copies.
bool setBySplit(const QString& column)
{
    const auto known = deliveryColumnNamed(column);
    return known && std::set{C::IDData, C::F00036, C::F00159, C::QuantityType, C::Quantity, C::DateDeliveryPrint,
                             C::DateLabelPrint}
                        .contains(*known);
}

class Split : public testing::TestWithParam<Path>
{
protected:
    Split() : temp(test::TempDatabase::Schema::Delivery, GetParam()) {}
    db::Database& db() { return temp.db(); }

    // A printed record of the buyer with a value in every column, order ORD-1.
    qint64 insert(const QString& key, const std::vector<std::pair<C, QVariant>>& columns = {}, qint64 customer = Buyer)
    {
        DeliveryRecord record;
        for (const DeliveryColumnInfo& info : deliveryColumns()) {
            if (info.type == ColumnType::Text)
                record.set(info.column, QString(info.name + u"値"_s));
        }
        const std::pair<C, QVariant> values[] = {
            {C::IDCustomer, customer}, {C::F00007, u"ORD-1"_s}, {C::F00159, key}, {C::F00031, QDate(2005, 3, 1)},
            {C::F00015, 12.5}, {C::F00032, 11.0}, {C::F00036, u"10"_s}, {C::F00057, 1}, {C::F00282, u"0"_s},
            {C::F00013, u"123.456"_s}, {C::QuantityType, 1}, {C::Quantity, u"10"_s}, {C::InDustBox, false},
            {C::DateDeliveryPrint, QDateTime(QDate(2005, 3, 10), QTime(9, 0))},
            {C::DateLabelPrint, QDateTime(QDate(2005, 3, 11), QTime(9, 0))}};
        for (const auto& columnValues : {std::vector(std::begin(values), std::end(values)), columns})
            for (const auto& [column, value] : columnValues)
                record.set(column, value);
        return insertDeliveryRecord(db(), record);
    }

    // The split of record `id` as the form asks for it, having shown the record as it is stored now.
    DeliverySplit splitOf(qint64 id, const QString& newKey, const QString& moved)
    {
        const DeliveryRecord shown = readDeliveryRecord(db(), id).value();
        return {id,
                Buyer,
                shown.text(C::F00007).value(),
                shown.text(C::F00159).value(),
                shown.currency(C::F00036).value(),
                currency(moved),
                newKey,
                shown,
                readPackageRows(db(), id)};
    }
    SplitResult split(const DeliverySplit& split)
    {
        db::Transaction transaction(db(), db::Transaction::Kind::Write);
        return splitDelivery(db(), transaction, split);
    }
    DeliveryRecord row(qint64 id) { return readDeliveryRecord(db(), id).value(); }
    qint64 count(const QString& table) { return db().scalar(u"SELECT COUNT(*) FROM "_s + table)->toLongLong(); }
    // Every column of a row as the table has them, by name.
    QVariantMap allColumns(qint64 id)
    {
        db::Statement statement = db().prepare(u"SELECT * FROM T_Delivery WHERE IDData = ?"_s);
        statement.bind(0, id).exec();
        EXPECT_TRUE(statement.next());
        QVariantMap values;
        for (int i = 0; i < statement.columnCount(); ++i)
            values[statement.columnNames()[i]] = statement.value(i);
        return values;
    }

    test::TempDatabase temp;
};

INSTANTIATE_TEST_SUITE_P(Db, Split, test::bothStatementPaths(), test::statementPathName);

TEST_P(Split, EachHalfBecomesASinglePackageWhenItsPackagesNoLongerFit)
{
    struct Half
    {
        std::optional<int> mode;
        QString package;
    };
    struct Case
    {
        const char* name;
        std::optional<int> mode;
        QString package, before, moved;
        Half rest, moved_;
    };
    const Case cases[] = {
        {"individual", 3, u"3"_s, u"10"_s, u"6"_s, {1, u"4"_s}, {1, u"6"_s}},
        {"equal 5", 2, u"5"_s, u"10"_s, u"6"_s, {1, u"4"_s}, {2, u"5"_s}},
        {"equal exactly the new half", 2, u"6"_s, u"10"_s, u"6"_s, {1, u"4"_s}, {1, u"6"_s}},
        {"equal 0.001 short of the new half", 2, u"5.999"_s, u"10"_s, u"6"_s, {1, u"4"_s}, {2, u"5.999"_s}},
        {"equal exactly the rest", 2, u"4"_s, u"10"_s, u"6"_s, {1, u"4"_s}, {2, u"4"_s}},
        {"equal 0.001 short of the rest", 2, u"3.999"_s, u"10"_s, u"6"_s, {2, u"3.999"_s}, {2, u"3.999"_s}},
        {"single keeps its quantity", 1, u"7"_s, u"10"_s, u"6"_s, {1, u"7"_s}, {1, u"7"_s}},
        {"no mode stays none", std::nullopt, u"7"_s, u"10"_s, u"6"_s, {std::nullopt, u"7"_s}, {std::nullopt, u"7"_s}},
        {"0.002 in equal thousandths", 2, u"0.001"_s, u"0.002"_s, u"0.001"_s, {1, u"0.001"_s}, {1, u"0.001"_s}},
        {"0.002 individual", 3, u"0.001"_s, u"0.002"_s, u"0.001"_s, {1, u"0.001"_s}, {1, u"0.001"_s}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const qint64 id = insert(u"K-"_s + QString::fromLatin1(c.name),
                                 {{C::QuantityType, c.mode ? QVariant(*c.mode) : QVariant()},
                                  {C::Quantity, c.package},
                                  {C::F00036, c.before}});
        if (c.mode == 3)
            insertPackageRows(db(), id, {u"2"_s, c.package});
        const SplitResult result = split(splitOf(id, u"NEW-"_s + QString::fromLatin1(c.name), c.moved));
        ASSERT_EQ(result.outcome, SaveOutcome::Saved);
        for (const auto& [half, quantity, expected] :
             {std::tuple{id, currency(c.before) - currency(c.moved), c.rest}, {result.newId, currency(c.moved), c.moved_}}) {
            const DeliveryRecord stored = row(half);
            EXPECT_EQ(stored.currency(C::F00036), quantity);
            EXPECT_EQ(stored.integer(C::QuantityType), expected.mode);
            EXPECT_EQ(stored.currency(C::Quantity), currency(expected.package));
            EXPECT_TRUE(stored.isNull(C::DateDeliveryPrint) && stored.isNull(C::DateLabelPrint));
            EXPECT_TRUE(readPackageRows(db(), half).quantities.empty()) << "individual packages are one now";
        }
    }
}

TEST_P(Split, TheNewRecordCopiesEveryColumnTheHostsOwnIncluded)
{
    db().execute(u"ALTER TABLE T_Delivery ADD COLUMN \"ホスト 備考\" TEXT"_s);
    db().execute(u"ALTER TABLE T_Delivery ADD COLUMN HostAmount REAL"_s);
    const qint64 id = insert(u"K-1"_s, {{C::F00002, u"0502"_s}, {C::F00030, u"2"_s}});
    db().execute(u"UPDATE T_Delivery SET \"ホスト 備考\" = '持ち越し', HostAmount = 1.25"_s);
    const QVariantMap before = allColumns(id);

    const SplitResult result = split(splitOf(id, u"K-2 "_s, u"2.5"_s));
    ASSERT_EQ(result.outcome, SaveOutcome::Saved);
    const QVariantMap copy = allColumns(result.newId);
    ASSERT_EQ(copy.keys(), before.keys());
    for (auto column = before.begin(); column != before.end(); ++column) {
        if (!setBySplit(column.key())) {
            EXPECT_EQ(copy[column.key()], column.value()) << qPrintable(column.key());
        }
    }
    EXPECT_EQ(copy[u"F00159"_s], u"K-2 "_s) << "stored as typed";
    EXPECT_EQ(copy[u"ホスト 備考"_s], u"持ち越し"_s);
    EXPECT_EQ(allColumns(id)[u"ホスト 備考"_s], u"持ち越し"_s) << "the record's own columns stay";
}

TEST_P(Split, ARefusedSplitWritesNothing)
{
    struct Case
    {
        const char* name;
        QString newKey;
        std::function<void(qint64 id)> meanwhile;
        SaveOutcome outcome;
    };
    const Case cases[] = {
        {"the record's own key", u"K-1"_s, {}, SaveOutcome::DuplicateKey},
        {"another key, trailing blanks", u"K-2   "_s, {}, SaveOutcome::DuplicateKey},
        {"another key, other letter case", u"k-2"_s, {}, SaveOutcome::DuplicateKey},
        {"a pattern matching another key", u"K-[2]"_s, {}, SaveOutcome::DuplicateKey},
        {"changed by another operator", u"K-9"_s,
         [this](qint64 id) { test::SecondConnection(temp).exec(u"UPDATE T_Delivery SET F00164 = 'x' WHERE IDData = "_s + QString::number(id)); },
         SaveOutcome::ChangedByOther},
        {"packages changed by another operator", u"K-9"_s,
         [this](qint64 id) { insertPackageRows(db(), id, {u"1"_s}); }, SaveOutcome::ChangedByOther},
        {"deleted by another operator", u"K-9"_s, [this](qint64 id) { deleteDeliveryRecord(db(), id); },
         SaveOutcome::DeletedByOther},
    };
    insert(u"K-2"_s);
    insert(u"K-3"_s, {{C::InDustBox, true}});
    insert(u"K-4"_s, {}, Buyer + 1);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const qint64 id = insert(u"K-1"_s, {{C::QuantityType, 3}});
        insertPackageRows(db(), id, {u"10"_s});
        const DeliverySplit request = splitOf(id, c.newKey, u"4"_s);
        if (c.meanwhile)
            c.meanwhile(id);
        const qint64 records = count(u"T_Delivery"_s), packages = count(u"T_DeliveryQTY"_s);
        const auto stored = readDeliveryRecord(db(), id);
        EXPECT_EQ(split(request).outcome, c.outcome);
        EXPECT_EQ(count(u"T_Delivery"_s), records);
        EXPECT_EQ(count(u"T_DeliveryQTY"_s), packages);
        if (stored) {
            EXPECT_EQ(row(id).currency(C::F00036), Currency::fromInteger(10));
            deleteDeliveryRecord(db(), id);
        }
    }
    // Neither a record in the waste box nor another buyer's holds a key.
    for (const QString& key : {u"K-3"_s, u"K-4"_s})
        EXPECT_EQ(split(splitOf(insert(u"K-5"_s + key), key, u"1"_s)).outcome, SaveOutcome::Saved);
}

TEST_P(Split, AFailureLeavesTheTransactionToTheCaller)
{
    const qint64 id = insert(u"K-1"_s);
    db().execute(u"CREATE TRIGGER refuse BEFORE UPDATE OF F00036 ON T_Delivery WHEN NEW.F00036 = 4 "
                 u"BEGIN SELECT RAISE(ABORT, 'split refused'); END"_s);
    DeliverySplit edited = splitOf(id, u"K-2"_s, u"6"_s);
    edited.oldKey = u"K-1b"_s; // an order key edited on screen finds no record
    for (const auto& [request, number] : {std::pair{edited, 3021L}, {splitOf(id, u"K-2"_s, u"6"_s), 1811L}}) {
        {
            db::Transaction transaction(db(), db::Transaction::Kind::Write);
            try {
                splitDelivery(db(), transaction, request);
                ADD_FAILURE() << "no error";
            } catch (const db::DatabaseError& e) {
                EXPECT_EQ(e.number(), number);
            }
            EXPECT_TRUE(transaction.isOpen());
            if (number == 1811) {
                EXPECT_EQ(count(u"T_Delivery"_s), 2) << "the new row, written before the failure";
            }
        }
        EXPECT_EQ(count(u"T_Delivery"_s), 1) << "rolled back by its owner";
    }
}

TEST_P(Split, RandomRecordsSplitAtRandomAddUpAndKeepTheirPackageRules)
{
    std::mt19937_64 random(20050310);
    const auto below = [&](qint64 n) { return qint64(random() % quint64(n)); };
    db().execute(u"PRAGMA synchronous = OFF"_s); // 300 writes without waiting for the disk
    for (int i = 0; i < 300; ++i) {
        // Delivery quantities of up to 12 digits with three decimals, packages of any size near them.
        const qint64 thousandths = 2 + below(qint64(1) << below(40));
        const Currency before = Currency::fromRaw(thousandths * 10);
        const Currency moved = Currency::fromRaw((1 + below(thousandths - 1)) * 10);
        const Currency package = Currency::fromRaw((1 + below(thousandths)) * 10);
        const int mode = 1 + int(below(3));
        const QString key = u"R-"_s + QString::number(i);
        const qint64 id = insert(key, {{C::F00036, before.toString()},
                                       {C::QuantityType, mode},
                                       {C::Quantity, package.toString()},
                                       {C::F00164, QString::number(random())}});
        const QVariantMap original = allColumns(id);
        const SplitResult result = split(splitOf(id, key + u"b"_s, moved.toString()));
        ASSERT_EQ(result.outcome, SaveOutcome::Saved);
        const DeliveryRecord rest = row(id), split = row(result.newId);
        ASSERT_EQ(rest.currency(C::F00036).value() + split.currency(C::F00036).value(), before) << i;
        for (const DeliveryRecord* half : {&rest, &split}) {
            const Currency quantity = half->currency(C::F00036).value();
            // Individual packages are one; equal ones are one when a package would hold the whole half.
            const bool single = mode == 3 || (mode == 2 && package >= quantity);
            EXPECT_EQ(half->integer(C::QuantityType), single ? 1 : mode) << i;
            EXPECT_EQ(half->currency(C::Quantity), single ? quantity : package) << i;
        }
        const QVariantMap copy = allColumns(result.newId);
        for (auto column = original.begin(); column != original.end(); ++column) {
            if (!setBySplit(column.key())) {
                ASSERT_EQ(copy[column.key()], column.value()) << i << qPrintable(column.key());
            }
        }
    }
}

} // namespace
