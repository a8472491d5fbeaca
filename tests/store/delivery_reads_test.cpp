// Reads and writes of the delivery tables on every engine and statement path.
#include "store/delivery_reads.h"
#include "store/delivery_writes.h"
#include "store/package_quantities.h"
#include "tests/support/temp_database.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace tolvinpt;
using C = tolvinpt::DeliveryColumn;

namespace {

class Reads : public testing::TestWithParam<test::Backend>
{
protected:
    Reads() : temp(test::TempDatabase::Schema::Delivery, GetParam()) {}

    qint64 insert(qint64 customer, const QString& order, const QString& key, bool inDustBox = false)
    {
        DeliveryRecord record;
        record.set(C::IDCustomer, customer);
        record.set(C::F00007, order);
        record.set(C::F00159, key);
        record.set(C::InDustBox, inDustBox);
        return insertDeliveryRecord(temp.db(), record);
    }

    test::TempDatabase temp;
};

TEST_P(Reads, DeletingARecordTakesItsPackagesAlongAndAMissingOneReadsAsNothing)
{
    const qint64 id = insert(1, u"A"_s, u"KEY-1"_s);
    insertPackageRows(temp.db(), id, {u"1"_s, u"2"_s});
    deleteDeliveryRecord(temp.db(), id);
    EXPECT_FALSE(readDeliveryRecord(temp.db(), id));
    EXPECT_TRUE(readPackageRows(temp.db(), id).quantities.empty());
}

TEST_P(Reads, DeliveryKeysComeInListOrder)
{
    const qint64 a = insert(1, u"A"_s, u"KEY-A"_s);
    const qint64 b = insert(1, u"B"_s, u"KEY-B"_s);
    DeliveryRecord noKey;
    noKey.setNull(C::F00159);
    const qint64 n = insertDeliveryRecord(temp.db(), noKey);
    const std::vector<std::optional<QString>> expected{u"KEY-B"_s, std::nullopt, u"KEY-A"_s, u""_s,
                                                       u"KEY-B"_s};
    EXPECT_EQ(readDeliveryKeys(temp.db(), {b, 999, a, n, b}), expected);
}

TEST_P(Reads, AtMostAHundredPackagesAreRead)
{
    const qint64 id = insert(1, u"A"_s, u"A"_s);
    QList<QVariant> quantities;
    for (int i = 1; i <= 102; ++i)
        quantities.append(i == 3 ? QVariant() : QVariant(QString::number(i)));
    insertPackageRows(temp.db(), id, quantities);
    const PackageRows rows = readPackageRows(temp.db(), id);
    ASSERT_EQ(rows.quantities.size(), std::size_t(MaxPackages));
    EXPECT_TRUE(rows.truncated);
    EXPECT_FALSE(rows.quantities[2]); // a Null quantity
    EXPECT_EQ(rows.quantities[99], Currency::fromInteger(100));
}

TEST_P(Reads, OrderKeyFindsLiveRecordsIgnoringLetterCase)
{
    const qint64 live = insert(7, u"ord-1"_s, u"Key-1"_s);
    insert(7, u"ORD-2"_s, u"KEY-2"_s, true);
    insert(8, u"ORD-3"_s, u"KEY-3"_s);
    const struct
    {
        qint64 customer;
        QString order, key;
        std::optional<qint64> found;
    } cases[] = {
        {7, u"ord-1"_s, u"Key-1"_s, live},          {7, u"ORD-1"_s, u"KEY-1"_s, live},
        {7, u"ORD-1 "_s, u"KEY-1"_s, std::nullopt}, {7, u"ORD-1"_s, u"KEY-*"_s, std::nullopt},
        {8, u"ORD-1"_s, u"KEY-1"_s, std::nullopt},  {7, u"ORD-2"_s, u"KEY-2"_s, std::nullopt}, // waste box
        {8, u"ord-3"_s, u"key-3"_s, live + 2},      {7, u"ORD-1"_s, u"\"'"_s, std::nullopt},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(QString(c.order + u'/' + c.key).toStdString());
        EXPECT_EQ(findLiveRecordByOrderKey(temp.db(), c.customer, c.order, c.key), c.found);
    }
}

INSTANTIATE_TEST_SUITE_P(Db, Reads, test::allBackends(), test::backendName);

} // namespace
