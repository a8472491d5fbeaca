// The shipped DDL on a real SQLite file: column order, defaults, exact round trips, index use.
#include "platform/sql/sql_dialect.h"
#include "store/delivery_reads.h"
#include "store/delivery_writes.h"
#include "tests/support/temp_database.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;
using namespace tolvinpt;
using C = tolvinpt::DeliveryColumn;

namespace {

class Schema : public testing::Test
{
protected:
    // The plan's detail lines for `sql` with `values` bound.
    QString plan(const QString& sql, std::initializer_list<QVariant> values)
    {
        db::Statement statement = temp.db().prepare(u"EXPLAIN QUERY PLAN "_s + sql);
        statement.bind(values).exec();
        QStringList details;
        while (statement.next())
            details.append(statement.value(3).toString());
        return details.join(u'\n');
    }

    test::TempDatabase temp;
};

TEST_F(Schema, ColumnsAreTheCatalogueWithIDDataFirst)
{
    db::Statement statement = temp.db().prepare(u"SELECT name, pk FROM pragma_table_info('T_Delivery')"_s);
    statement.exec();
    QStringList names;
    while (statement.next()) {
        names.append(statement.value(0).toString());
        EXPECT_EQ(statement.value(1).toInt(), names.size() == 1 ? 1 : 0) << names.last().toStdString();
    }
    QStringList catalogue;
    for (const DeliveryColumnInfo& info : deliveryColumns())
        catalogue.append(info.name.toString());
    EXPECT_EQ(names, catalogue);
}

TEST_F(Schema, ValuesRoundTripExactly)
{
    DeliveryRecord record;
    record.set(C::IDCustomer, qint64(2147483647));
    record.set(C::F00007, u"ORD-0001/ｱｲｳ山田　太郎"_s);
    record.set(C::F00031, QDate(2005, 3, 10));
    record.set(C::F00039, QDate(1, 1, 1));
    record.set(C::F00040, QDate(9999, 12, 31));
    record.set(C::F00015, 999999999.999);
    record.set(C::F00032, 0.001);
    record.set(C::F00057, 2);
    record.set(C::F00282, u"99999999999.99999"_s);
    record.set(C::Quantity, u"922337203685477.5807"_s);
    record.set(C::InDustBox, true);
    record.set(C::DateDeliveryPrint, QDateTime(QDate(2005, 3, 10), QTime(23, 59, 58)));

    const auto read = readDeliveryRecord(temp.db(), insertDeliveryRecord(temp.db(), record));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->integer(C::IDCustomer), 2147483647);
    EXPECT_EQ(read->text(C::F00007), u"ORD-0001/ｱｲｳ山田　太郎"_s);
    EXPECT_EQ(read->date(C::F00031), QDate(2005, 3, 10));
    EXPECT_EQ(read->date(C::F00039), QDate(1, 1, 1));
    EXPECT_EQ(read->date(C::F00040), QDate(9999, 12, 31));
    EXPECT_EQ(read->number(C::F00015), 999999999.999);
    EXPECT_EQ(read->number(C::F00032), 0.001);
    EXPECT_EQ(read->smallInteger(C::F00057), 2);
    EXPECT_EQ(read->decimal(C::F00282), u"99999999999.99999"_s);
    EXPECT_EQ(read->currency(C::Quantity), Currency::fromRaw(std::numeric_limits<qint64>::max()));
    EXPECT_EQ(read->boolean(C::InDustBox), true);
    EXPECT_EQ(read->dateTime(C::DateDeliveryPrint), QDateTime(QDate(2005, 3, 10), QTime(23, 59, 58)));
    EXPECT_TRUE(read->isNull(C::DateLabelPrint));

    insertPackageRows(temp.db(), *read->id(), {u"922337203685477.5807"_s, u"0.0001"_s});
    const std::vector<std::optional<Currency>> packages{Currency::fromRaw(std::numeric_limits<qint64>::max()),
                                                        Currency::fromRaw(1)};
    EXPECT_EQ(readPackageRows(temp.db(), *read->id()).quantities, packages);
}

// A blank record, and one written with Null in every column: live, and Null wherever Null is allowed.
TEST_F(Schema, BlankAndNullRecordsRoundTrip)
{
    const auto nullable = [](C column) { return column != C::IDData && column != C::InDustBox; };
    DeliveryRecord record;
    for (const DeliveryColumnInfo& info : deliveryColumns()) {
        if (nullable(info.column))
            record.setNull(info.column);
    }
    for (const qint64 id : {insertBlankDeliveryRecord(temp.db()), insertDeliveryRecord(temp.db(), record)}) {
        const auto read = readDeliveryRecord(temp.db(), id);
        ASSERT_TRUE(read);
        EXPECT_EQ(read->id(), id);
        EXPECT_EQ(read->boolean(C::InDustBox), false);
        for (const DeliveryColumnInfo& info : deliveryColumns()) {
            if (nullable(info.column)) {
                EXPECT_TRUE(read->isNull(info.column) && !read->text(info.column) &&
                            !read->number(info.column) && !read->date(info.column))
                    << info.name.toString().toStdString();
            }
        }
    }
    record.setNull(C::InDustBox); // the waste-box flag is required
    EXPECT_THROW(insertDeliveryRecord(temp.db(), record), db::DatabaseError);
}

TEST_F(Schema, LookupsUseTheirIndexes)
{
    // All three key columns, despite the case-insensitive comparison.
    EXPECT_TRUE(plan(orderKeySql(temp.db().dialect()), {1, u"A"_s, u"B"_s})
                    .contains(u"IX_Delivery_OrderKey (IDCustomer=? AND F00007=? AND F00159=?)"_s));
    // The order search: the pattern's literal start as a range, a leading wildcard the customer's rows.
    EXPECT_TRUE(plan(orderSearchSql(temp.db().dialect(), true), {1, u"a"_s, u"b"_s, u"A*"_s})
                    .contains(u"IX_Delivery_OrderKey (IDCustomer=? AND F00007>? AND F00007<?)"_s));
    EXPECT_TRUE(plan(orderSearchSql(temp.db().dialect(), false), {1, u"*A"_s})
                    .contains(u"IX_Delivery_OrderKey (IDCustomer=?)"_s));
    EXPECT_TRUE(plan(packageRowsSql(), {1}).contains(u"IX_DeliveryQTY_Package"_s));
    EXPECT_TRUE(plan(deliveryRecordSql(), {1}).contains(u"INTEGER PRIMARY KEY"_s));
}

} // namespace
