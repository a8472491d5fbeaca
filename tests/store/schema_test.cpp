// The shipped DDL on each engine: column order, defaults, exact round trips, index use.
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

class Schema : public testing::TestWithParam<test::Backend>
{
protected:
    Schema() : temp(test::TempDatabase::Schema::Delivery, GetParam()) {}

    // The plan's lines for `sql` with `values` bound. The server is told to avoid full scans: an empty
    // table is cheaper to scan, and the question is whether the index can serve the condition.
    QString plan(const QString& sql, const QVariantList& values)
    {
        temp.db().execute(temp.sql(u"SELECT 1"_s, u"SET enable_seqscan = off"_s));
        db::Statement statement = temp.db().prepare(temp.sql(u"EXPLAIN QUERY PLAN "_s, u"EXPLAIN (COSTS OFF) "_s) + sql);
        for (int i = 0; i < values.size(); ++i)
            statement.bind(i, values[i]);
        statement.exec();
        QStringList details;
        while (statement.next())
            details.append(statement.value(temp.engine() == test::Engine::SQLite ? 3 : 0).toString());
        return details.join(u'\n');
    }

    test::TempDatabase temp;
};

TEST_P(Schema, ColumnsAreTheCatalogueWithIDDataFirst)
{
    db::Statement statement = temp.db().prepare(temp.sql(
        u"SELECT name, pk FROM pragma_table_info('T_Delivery')"_s,
        u"SELECT c.column_name, (SELECT COUNT(*) FROM information_schema.key_column_usage k "
        u"JOIN information_schema.table_constraints t ON t.constraint_name = k.constraint_name "
        u"WHERE t.constraint_type = 'PRIMARY KEY' AND k.table_name = c.table_name AND k.column_name = c.column_name) "
        u"FROM information_schema.columns c WHERE c.table_name = 't_delivery' ORDER BY c.ordinal_position"_s));
    statement.exec();
    QStringList names;
    while (statement.next()) {
        names.append(statement.value(0).toString().toLower());
        EXPECT_EQ(statement.value(1).toInt(), names.size() == 1 ? 1 : 0) << names.last().toStdString();
    }
    QStringList catalogue;
    for (const DeliveryColumnInfo& info : deliveryColumns())
        catalogue.append(info.name.toString().toLower());
    EXPECT_EQ(names, catalogue);
}

TEST_P(Schema, ValuesRoundTripExactly)
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
TEST_P(Schema, BlankAndNullRecordsRoundTrip)
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

TEST_P(Schema, LookupsUseTheirIndexes)
{
    const db::SqlDialect& dialect = temp.db().dialect();
    const QVariant anyPattern = dialect.likeValue(u"*A"_s), startPattern = dialect.likeValue(u"A*"_s);
    // The key lookup on all three key columns despite the case-insensitive comparison; the order search
    // with the pattern's literal start as a range, with a leading wildcard on the customer's rows.
    // On the server: the index, and the condition on its columns (the values are folded into the plan).
    const std::tuple<QString, QVariantList, QString, QString> cases[] = {
        {orderKeySql(dialect), {1, u"A"_s, u"B"_s}, u"IX_Delivery_OrderKey (IDCustomer=? AND F00007=? AND F00159=?)"_s,
         u"ix_delivery_orderkey|Index Cond: ((idcustomer = 1) AND (lower(f00007) = 'a'|(lower(f00159) = 'b'"_s},
        {orderSearchSql(dialect, true), {1, u"a"_s, u"b"_s, startPattern},
         u"IX_Delivery_OrderKey (IDCustomer=? AND F00007>? AND F00007<?)"_s,
         u"ix_delivery_orderkey|Index Cond: ((idcustomer = 1) AND (lower(f00007) >= 'a'|(lower(f00007) < 'b'"_s},
        {orderSearchSql(dialect, false), {1, anyPattern}, u"IX_Delivery_OrderKey (IDCustomer=?)"_s,
         u"ix_delivery_orderkey|Index Cond: (idcustomer = 1)"_s},
        {packageRowsSql(), {1}, u"IX_DeliveryQTY_Package"_s, u"ix_deliveryqty_package"_s},
        {deliveryRecordSql(), {1}, u"INTEGER PRIMARY KEY"_s, u"t_delivery_pkey"_s},
    };
    for (const auto& [sql, values, sqlite, postgresql] : cases) {
        const QString lines = plan(sql, values);
        for (const QString& part : temp.sql(sqlite, postgresql).split(u'|'))
            EXPECT_TRUE(lines.contains(part)) << part.toStdString() << " in\n" << lines.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Db, Schema, test::bothEngines(), test::backendName);

} // namespace
