// The split on real SQLite files: the package rules of both halves at their edges, the refusals that
// write nothing, and random records split at random in a table with columns of the host's own.
#include "platform/sql/transaction.h"
#include "store/delivery_split.h"
#include "store/delivery_writes.h"
#include "tests/support/temp_database.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

using namespace Qt::StringLiterals;
using namespace tolvinpt;
using C = tolvinpt::DeliveryColumn;

namespace {

constexpr qint64 Buyer = 7;
using Columns = std::vector<std::pair<C, QVariant>>;

Currency currency(const QString& text)
{
    return Currency::fromString(text).value();
}

class Split : public testing::TestWithParam<test::Backend>
{
protected:
    Split() : temp(test::TempDatabase::Schema::Delivery, GetParam()) {}
    db::Database& db() { return temp.db(); }

    // A printed record of order ORD-1 with a value in every text column, and `columns` on top.
    qint64 insert(const QString& key, const Columns& columns = {})
    {
        DeliveryRecord record;
        for (const DeliveryColumnInfo& info : deliveryColumns()) {
            if (info.type == ColumnType::Text)
                record.set(info.column, QString(info.name + u"値"_s));
        }
        // clang-format off
        const Columns values = {
            {C::IDCustomer, Buyer}, {C::F00007, u"ORD-1"_s}, {C::F00159, key}, {C::F00036, u"10"_s},
            {C::InDustBox, false}, {C::F00031, QDate(2005, 3, 1)}, {C::F00282, u"1.00001"_s},
            {C::DateDeliveryPrint, QDateTime(QDate(2005, 3, 10), {})}, {C::DateLabelPrint, QDate(2005, 3, 11)}};
        // clang-format on
        for (const Columns& set : {values, columns})
            for (const auto& [column, value] : set)
                record.set(column, value);
        return insertDeliveryRecord(db(), record);
    }
    // The split of record `id` as the form asks for it, having shown the record as it is stored now.
    SplitResult split(qint64 id, const QString& newKey, const QString& moved)
    {
        const DeliveryRecord shown = readDeliveryRecord(db(), id).value();
        db::Transaction transaction(db(), db::Transaction::Kind::Write);
        return splitDelivery(db(), transaction,
                             {id, Buyer, shown.text(C::F00007).value(), shown.text(C::F00159).value(),
                              shown.currency(C::F00036).value(), currency(moved), newKey, shown,
                              readPackageRows(db(), id)});
    }
    DeliveryRecord row(qint64 id) { return readDeliveryRecord(db(), id).value(); }
    qint64 count(const QString& table)
    {
        return db().scalar(u"SELECT COUNT(*) FROM "_s + table)->toLongLong();
    }

    test::TempDatabase temp;
};

INSTANTIATE_TEST_SUITE_P(Db, Split, test::allBackends(), test::backendName);

TEST_P(Split, EachHalfBecomesASinglePackageWhenItsPackagesNoLongerFit)
{
    struct Half
    {
        std::optional<int> mode;
        const char16_t* package;
    };
    struct Case
    {
        const char* name;
        std::optional<int> mode;
        const char16_t *package, *before, *moved;
        Half rest, split;
    };
    const Case cases[] = {
        {"individual", 3, u"3", u"10", u"6", {1, u"4"}, {1, u"6"}},
        {"equal 5", 2, u"5", u"10", u"6", {1, u"4"}, {2, u"5"}},
        {"equal, exactly the split half", 2, u"6", u"10", u"6", {1, u"4"}, {1, u"6"}},
        {"equal, 0.001 short of the split half", 2, u"5.999", u"10", u"6", {1, u"4"}, {2, u"5.999"}},
        {"equal, 0.001 short of the rest", 2, u"3.999", u"10", u"6", {2, u"3.999"}, {2, u"3.999"}},
        {"single keeps its quantity", 1, u"7", u"10", u"6", {1, u"7"}, {1, u"7"}},
        {"no mode stays none", std::nullopt, u"7", u"10", u"6", {std::nullopt, u"7"}, {std::nullopt, u"7"}},
        {"0.002, equal thousandths", 2, u"0.001", u"0.002", u"0.001", {1, u"0.001"}, {1, u"0.001"}},
        {"0.002, individual", 3, u"0.001", u"0.002", u"0.001", {1, u"0.001"}, {1, u"0.001"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const QString package = QString::fromUtf16(c.package), before = QString::fromUtf16(c.before);
        const qint64 id = insert(u"K-"_s + QString::fromLatin1(c.name),
                                 {{C::QuantityType, c.mode ? QVariant(*c.mode) : QVariant()},
                                  {C::Quantity, package},
                                  {C::F00036, before}});
        if (c.mode == 3)
            insertPackageRows(db(), id, {u"2"_s, package});
        const SplitResult result =
            split(id, u"N-"_s + QString::fromLatin1(c.name), QString::fromUtf16(c.moved));
        ASSERT_EQ(result.outcome, SaveOutcome::Saved);
        const Currency moved = currency(QString::fromUtf16(c.moved));
        for (const auto& [half, quantity, expected] :
             {std::tuple{id, currency(before) - moved, c.rest}, {result.newId, moved, c.split}}) {
            const DeliveryRecord stored = row(half);
            EXPECT_EQ(stored.currency(C::F00036), quantity);
            EXPECT_EQ(stored.integer(C::QuantityType), expected.mode);
            EXPECT_EQ(stored.currency(C::Quantity), currency(QString::fromUtf16(expected.package)));
            EXPECT_TRUE(stored.isNull(C::DateDeliveryPrint) && stored.isNull(C::DateLabelPrint));
            EXPECT_TRUE(readPackageRows(db(), half).quantities.empty());
        }
    }
}

TEST_P(Split, ARefusedSplitWritesNothing)
{
    const auto changeRow = [this](qint64 id) {
        test::SecondConnection(temp).exec(u"UPDATE T_Delivery SET F00164 = 'x' WHERE IDData = "_s +
                                          QString::number(id));
    };
    const struct
    {
        const char* name;
        const char16_t* newKey;
        std::function<void(qint64 id)> meanwhile;
        SaveOutcome outcome;
    } cases[] = {
        {"the record's own key", u"K-1", {}, SaveOutcome::DuplicateKey},
        {"another's key with trailing blanks", u"K-2   ", {}, SaveOutcome::DuplicateKey},
        {"another's key in other letter case", u"k-2", {}, SaveOutcome::DuplicateKey},
        {"a pattern matching another's key", u"K-[2]", {}, SaveOutcome::DuplicateKey},
        {"changed by another operator", u"K-9", changeRow, SaveOutcome::ChangedByOther},
        {"packages changed by another operator", u"K-9",
         [this](qint64 id) { insertPackageRows(db(), id, {1}); }, SaveOutcome::ChangedByOther},
        {"deleted by another operator", u"K-9", [this](qint64 id) { deleteDeliveryRecord(db(), id); },
         SaveOutcome::DeletedByOther},
    };
    insert(u"K-2"_s);
    insert(u"K-3"_s, {{C::InDustBox, true}});
    insert(u"K-4"_s, {{C::IDCustomer, Buyer + 1}});
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const qint64 id = insert(u"K-1"_s, {{C::QuantityType, 3}});
        insertPackageRows(db(), id, {10});
        const DeliveryRecord shown = row(id);
        const PackageRows packages = readPackageRows(db(), id);
        if (c.meanwhile)
            c.meanwhile(id);
        const qint64 records = count(u"T_Delivery"_s), packageRows = count(u"T_DeliveryQTY"_s);
        db::Transaction transaction(db(), db::Transaction::Kind::Write);
        EXPECT_EQ(splitDelivery(db(), transaction,
                                {id, Buyer, u"ORD-1"_s, u"K-1"_s, Currency::fromInteger(10),
                                 Currency::fromInteger(4), QString::fromUtf16(c.newKey), shown, packages})
                      .outcome,
                  c.outcome);
        EXPECT_FALSE(transaction.isOpen());
        EXPECT_EQ(count(u"T_Delivery"_s), records);
        EXPECT_EQ(count(u"T_DeliveryQTY"_s), packageRows);
        deleteDeliveryRecord(db(), id);
    }
    // Neither a record in the waste box nor another buyer's holds a key.
    for (const QString& key : {u"K-3"_s, u"K-4"_s})
        EXPECT_EQ(split(insert(u"K-5"_s + key), key, u"1"_s).outcome, SaveOutcome::Saved);
}

// Each half holds its part exactly, follows the package rules, and has every other column of the
// record, the host's own columns too (one with a blank in its name).
TEST_P(Split, RandomRecordsSplitAtRandomKeepEveryOtherColumn)
{
    db().execute(u"ALTER TABLE T_Delivery ADD COLUMN \"ホスト 備考\" TEXT"_s);
    db().execute(u"ALTER TABLE T_Delivery ADD COLUMN HostAmount "_s + temp.sql(u"REAL"_s, u"double precision"_s));
    // 300 writes without waiting for the disk
    db().execute(temp.sql(u"PRAGMA synchronous = OFF"_s, u"SET synchronous_commit = off"_s));
    const auto everyColumn = [this](qint64 id) {
        db::Statement read = db().prepare(deliveryRecordSql());
        read.bind(0, id).exec();
        EXPECT_TRUE(read.next());
        QVariantMap values;
        for (int i = 0; i < read.columnCount(); ++i)
            values[read.columnNames()[i].toLower()] = read.value(i); // the server reports f00159
        return values;
    };
    std::mt19937_64 random(20050310);
    const auto below = [&](qint64 n) { return qint64(random() % quint64(n)); };
    for (int i = 0; i < 300; ++i) {
        // Quantities of up to 12 digits with three decimals; packages of any size up to the quantity.
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
        db().execute(u"UPDATE T_Delivery SET \"ホスト 備考\" = ?, HostAmount = ? WHERE IDData = ?"_s,
                     {QString(u"持ち越し"_s + QString::number(i)), double(random() % 1000) / 8, id});
        const QVariantMap original = everyColumn(id);
        const SplitResult result = split(id, key + u"b"_s, moved.toString());
        ASSERT_EQ(result.outcome, SaveOutcome::Saved);
        const DeliveryRecord rest = row(id), split = row(result.newId);
        ASSERT_EQ(rest.currency(C::F00036).value() + split.currency(C::F00036).value(), before) << i;
        for (const DeliveryRecord* half : {&rest, &split}) {
            // Individual packages are one; equal ones are one when a package would hold the whole half.
            const Currency quantity = half->currency(C::F00036).value();
            const bool single = mode == 3 || (mode == 2 && package >= quantity);
            EXPECT_EQ(half->integer(C::QuantityType), single ? 1 : mode) << i;
            EXPECT_EQ(half->currency(C::Quantity), single ? quantity : package) << i;
        }
        const QVariantMap copy = everyColumn(result.newId);
        ASSERT_EQ(copy.keys(), original.keys());
        for (const QString& column : original.keys()) {
            const auto known = deliveryColumnNamed(column);
            const bool set = known && (*known == C::IDData || *known == C::F00036 || *known == C::F00159 ||
                                       columnInfo(*known).writer == Writer::PackageSave ||
                                       columnInfo(*known).writer == Writer::ClearedByDetail ||
                                       columnInfo(*known).writer == Writer::ClearedByPackage);
            if (!set) {
                ASSERT_EQ(copy[column], original[column]) << i << qPrintable(column);
            }
        }
        EXPECT_EQ(copy[u"f00159"_s], QString(key + u"b"_s));
    }
}

} // namespace
