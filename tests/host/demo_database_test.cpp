// A new host database: the marks, the master data and the demo delivery records hold what the
// entry form will be tried on, and a second opening leaves the file as it was.
#include "tests/host/host_fixture.h"

#include "host/host_schema.h"
#include "host/record_kind.h"

#include <QDate>
#include <QRegularExpression>
#include <QSet>

namespace tolvinpt::host::test {
namespace {

using DemoDatabase = DemoDatabaseTest;

QStringList column(const QString& connection, const QString& sql)
{
    QStringList values;
    QSqlQuery query(QSqlDatabase::database(connection, false));
    query.exec(sql);
    while (query.next())
        values << (query.isNull(0) ? QStringLiteral("<null>") : query.value(0).toString());
    return values;
}

TEST_F(DemoDatabase, IsMarkedAsOursAndHoldsEveryTable)
{
    EXPECT_EQ(scalar(connection, QStringLiteral("PRAGMA application_id")).toInt(), kApplicationId);
    EXPECT_EQ(scalar(connection, QStringLiteral("PRAGMA user_version")).toInt(), kSchemaVersion);
    const QStringList tables = QSqlDatabase::database(connection, false).tables();
    for (const QString& table : requiredTables())
        EXPECT_TRUE(tables.contains(table)) << table.toStdString();
    // The component copies a record column by column by position: IDData must come first.
    EXPECT_EQ(
        scalar(connection, QStringLiteral("SELECT name FROM pragma_table_info('T_Delivery') WHERE cid = 0")),
        QStringLiteral("IDData"));
}

TEST_F(DemoDatabase, CustomerMasterHasEveryKindOfBuyer)
{
    EXPECT_GE(count(QStringLiteral("SELECT COUNT(*) FROM T_Customer")), 6);
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM T_Customer WHERE Deleted <> 0")), 1);
    for (const char* setting : {"LenientEntry", "NoQuantityBreakdown", "HideQuantityFrame"})
        EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM T_CustomerSettings WHERE %1 <> 0")
                            .arg(QString::fromLatin1(setting))),
                  1)
            << setting;
    EXPECT_GE(count(QStringLiteral("SELECT COUNT(DISTINCT IDCustomer) FROM T_CustomerSubCode")), 2);
    for (const QString& code : column(connection, QStringLiteral("SELECT Code FROM T_Customer")))
        EXPECT_TRUE(QRegularExpression(QStringLiteral("^[0-9]{4,13}$")).match(code).hasMatch())
            << code.toStdString();

    EXPECT_EQ(scalar(connection, QStringLiteral("SELECT OwnCode FROM T_Company")), QStringLiteral("*"));
    EXPECT_NE(scalar(connection, QStringLiteral("SELECT MultipleOwnCodes FROM T_Company")).toInt(), 0);
    EXPECT_GE(count(QStringLiteral("SELECT COUNT(*) FROM T_OwnCode")), 2);
}

TEST_F(DemoDatabase, RecordsCoverEveryKindCurrencyAndPackageMode)
{
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM T_Delivery")), 300);

    QHash<QString, int> kinds;
    QSqlQuery query(QSqlDatabase::database(connection, false));
    query.exec(QStringLiteral("SELECT F00002, F00030 FROM T_Delivery"));
    while (query.next())
        ++kinds[kindCaption(query.value(0), query.value(1))];
    for (const QString& caption : kindCaptions())
        EXPECT_GE(kinds.value(caption), 5) << caption.toStdString();
    // Hand input both as empty text and as Null.
    EXPECT_GT(count(QStringLiteral("SELECT COUNT(*) FROM T_Delivery WHERE F00002 IS NULL")), 0);
    EXPECT_GT(count(QStringLiteral("SELECT COUNT(*) FROM T_Delivery WHERE F00002 = ''")), 0);

    const QStringList currencies =
        column(connection, QStringLiteral("SELECT DISTINCT F00281 FROM T_Delivery"));
    for (const char16_t* code : {u"", u"   ", u"<null>", u"USD", u"XYZ"})
        EXPECT_TRUE(currencies.contains(QString::fromUtf16(code))) << QString::fromUtf16(code).toStdString();

    const QStringList modes =
        column(connection, QStringLiteral("SELECT DISTINCT QuantityType FROM T_Delivery"));
    for (const char16_t* mode : {u"1", u"2", u"3", u"<null>"})
        EXPECT_TRUE(modes.contains(QString::fromUtf16(mode))) << QString::fromUtf16(mode).toStdString();

    const qint64 wasteBox = count(QStringLiteral("SELECT COUNT(*) FROM T_Delivery WHERE InDustBox <> 0"));
    EXPECT_GT(wasteBox, 2);
    EXPECT_LT(wasteBox, 30);
}

TEST_F(DemoDatabase, PricesFollowTheYenAndForeignRule)
{
    const QRegularExpression exact(QStringLiteral("^[0-9]+(\\.[0-9]{1,5})?$"));
    QSqlQuery query(QSqlDatabase::database(connection, false));
    query.exec(QStringLiteral("SELECT F00281, F00013, F00282 FROM T_Delivery"));
    int foreign = 0;
    while (query.next()) {
        const bool yen = query.value(0).toString().trimmed().isEmpty();
        const QString yenPrice = query.value(1).toString();
        const QString foreignPrice = query.value(2).toString();
        EXPECT_TRUE(exact.match(yenPrice).hasMatch() && exact.match(foreignPrice).hasMatch());
        EXPECT_EQ(yen ? foreignPrice : yenPrice, QStringLiteral("0"));
        EXPECT_NE(yen ? yenPrice : foreignPrice, QStringLiteral("0"));
        foreign += yen ? 0 : 1;
    }
    EXPECT_GT(foreign, 10);
}

TEST_F(DemoDatabase, IndividualPackagesAddUpToTheDeliveryQuantity)
{
    // Only individual packing has package rows; they run 1, 2, ... and add up to the delivery.
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM T_DeliveryQTY q JOIN T_Delivery d USING (IDData) "
                                   "WHERE d.QuantityType IS NOT 3")),
              0);
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM T_Delivery d WHERE QuantityType = 3 AND NOT EXISTS "
                                   "(SELECT 1 FROM T_DeliveryQTY q WHERE q.IDData = d.IDData)")),
              0);
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM (SELECT IDData FROM T_DeliveryQTY GROUP BY IDData "
                                   "HAVING MIN(Sequence) <> 1 OR MAX(Sequence) <> COUNT(*) "
                                   "OR MIN(CAST(Quantity AS REAL)) <= 0)")),
              0);
    EXPECT_EQ(
        count(QStringLiteral("SELECT COUNT(*) FROM T_Delivery d JOIN (SELECT IDData, "
                             "SUM(CAST(Quantity AS REAL)) AS total FROM T_DeliveryQTY GROUP BY IDData) p "
                             "USING (IDData) WHERE ABS(p.total - d.F00036) > 0.0001")),
        0);
    // Equal packages divide the delivery.
    EXPECT_EQ(
        count(QStringLiteral("SELECT COUNT(*) FROM T_Delivery WHERE QuantityType = 2 AND "
                             "(CAST(F00036 * 1000 AS INTEGER) % CAST(Quantity * 1000 AS INTEGER)) <> 0")),
        0);
}

TEST_F(DemoDatabase, RecordsAreConsistentWithTheMasterAndTheCalendar)
{
    EXPECT_EQ(
        count(QStringLiteral("SELECT COUNT(*) FROM T_Delivery d LEFT JOIN T_Customer c USING (IDCustomer) "
                             "WHERE c.IDCustomer IS NULL")),
        0);
    // F00004 is the buyer's code or one of its full codes.
    EXPECT_EQ(
        count(QStringLiteral(
            "SELECT COUNT(*) FROM T_Delivery d JOIN T_Customer c USING (IDCustomer) WHERE d.F00004 <> c.Code "
            "AND NOT EXISTS (SELECT 1 FROM T_CustomerSubCode s WHERE s.IDCustomer = c.IDCustomer "
            "AND d.F00004 = c.Code || s.SubCode)")),
        0);
    EXPECT_GT(count(QStringLiteral("SELECT COUNT(*) FROM T_Delivery d JOIN T_Customer c USING (IDCustomer) "
                                   "WHERE d.F00004 <> c.Code")),
              0);
    // No two live records of one buyer share an order key.
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM (SELECT 1 FROM T_Delivery WHERE InDustBox = 0 "
                                   "GROUP BY IDCustomer, F00007, F00159 HAVING COUNT(*) > 1)")),
              0);
    for (const char* date : {"F00031", "F00039", "F00040"}) {
        for (const QString& value :
             column(connection, QStringLiteral("SELECT %1 FROM T_Delivery WHERE %1 IS NOT NULL")
                                    .arg(QString::fromLatin1(date)))) {
            const QDate d = QDate::fromString(value, Qt::ISODate);
            ASSERT_TRUE(d.isValid()) << value.toStdString();
            EXPECT_TRUE(d.year() >= 2004 && d.year() <= 2006) << value.toStdString();
        }
    }
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM T_Delivery WHERE F00039 > F00040")), 0);
}

TEST_F(DemoDatabase, HalfWidthFieldsHoldHalfWidthTextAndKanjiFieldsFullWidth)
{
    const auto halfWidth = [](QChar c) {
        return c.unicode() < 0x80 || (c.unicode() >= 0xFF61 && c.unicode() <= 0xFF9F);
    };
    QSqlQuery query(QSqlDatabase::database(connection, false));
    query.exec(QStringLiteral("SELECT F00022, F00262, F00160, F00274, F00018, F00260 FROM T_Delivery"));
    while (query.next()) {
        for (int a = 0; a < 6; a += 2) {
            const QString half = query.value(a).toString();
            const QString full = query.value(a + 1).toString();
            EXPECT_TRUE(std::all_of(half.begin(), half.end(), halfWidth)) << half.toStdString();
            EXPECT_TRUE(std::none_of(full.begin(), full.end(), halfWidth)) << full.toStdString();
        }
    }
}

TEST(DemoDatabaseFile, IsTheSameEveryTimeAndASecondOpeningLeavesItUntouched)
{
    QTemporaryDir dir;
    const QString first = dir.filePath(QStringLiteral("first.sqlite"));
    const QString second = dir.filePath(QStringLiteral("second.sqlite"));
    const QString connection = QStringLiteral("host-test-repeat");
    for (const QString& path : {first, second}) {
        ASSERT_EQ(openHostDatabase(path, connection).code, ExitCode::Ok);
        closeHostDatabase(connection);
    }
    const QByteArray created = fileHash(first);
    EXPECT_EQ(created, fileHash(second));

    ASSERT_EQ(openHostDatabase(first, connection).code, ExitCode::Ok);
    EXPECT_EQ(count(connection, QStringLiteral("SELECT COUNT(*) FROM T_Delivery")), 300);
    closeHostDatabase(connection);
    EXPECT_EQ(fileHash(first), created);
}

} // namespace
} // namespace tolvinpt::host::test
