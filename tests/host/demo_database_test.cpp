// A new host database: the marks, the master data and the demo delivery records hold what the
// entry form will be tried on.
#include "tests/host/host_fixture.h"

#include "host/delivery_list_model.h"
#include "host/record_kind.h"

#include <QRegularExpression>

namespace tolvinpt::host::test {
namespace {

using DemoDatabase = DemoDatabaseTest;

// A database of the first version (without the list's indexes) opens and becomes what a new one is,
// reporting its progress.
TEST_F(DemoDatabase, OfAnEarlierVersionOpensAndIsBroughtUpToDate)
{
    const auto schema = [this] {
        return texts(u"SELECT type || name || sql FROM sqlite_master ORDER BY name"_s)
               << scalar(connection, u"PRAGMA application_id"_s).toString()
               << scalar(connection, u"PRAGMA user_version"_s).toString();
    };
    const QStringList fresh = schema();
    const QStringList dropped =
        texts(u"SELECT name FROM sqlite_master WHERE name LIKE 'IX_DeliveryList_%'"_s);
    ASSERT_GE(dropped.size(), int(DeliveryListModel::ListColumnCount));
    for (const QString& name : dropped)
        exec(u"DROP INDEX "_s + name);
    exec(u"PRAGMA user_version = 1"_s);
    closeHostDatabase(connection);
    QList<std::pair<int, int>> progress;
    const auto report = [&](int done, int total) { progress.append({done, total}); };
    ASSERT_EQ(openHostDatabase(path, connection, {false, report}).code, ExitCode::Ok);
    EXPECT_EQ(schema(), fresh);
    // Reported from the first step to the last, one step at a time.
    ASSERT_FALSE(progress.isEmpty());
    for (int i = 0; i < progress.size(); ++i)
        EXPECT_EQ(progress[i], std::make_pair(i, int(progress.size()) - 1));
}

// Each query counts rows; the count must lie in [min, max].
TEST_F(DemoDatabase, CoversEveryKindOfBuyerAndRecordAndKeepsItsRules)
{
    const qint64 any = 1'000'000;
    // clang-format off
    const std::tuple<const char*, qint64, qint64> checks[] = {
        {"SELECT COUNT(*) FROM T_Delivery", 300, 300}, {"SELECT COUNT(*) FROM T_Customer", 6, any},
        {"SELECT COUNT(*) FROM T_Customer WHERE Deleted <> 0", 1, 1},
        {"SELECT COUNT(*) FROM T_CustomerSettings WHERE LenientEntry <> 0", 1, 1},
        {"SELECT COUNT(*) FROM T_CustomerSettings WHERE NoQuantityBreakdown <> 0", 1, 1},
        {"SELECT COUNT(*) FROM T_CustomerSettings WHERE HideQuantityFrame <> 0", 1, 1},
        {"SELECT COUNT(DISTINCT IDCustomer) FROM T_CustomerSubCode", 2, any},
        {"SELECT COUNT(*) FROM T_Customer "
         "WHERE Code NOT GLOB '[0-9][0-9][0-9][0-9]*' OR Code GLOB '*[^0-9]*' OR LENGTH(Code) > 13", 0, 0},
        {"SELECT COUNT(*) FROM T_Company WHERE OwnCode = '*' AND MultipleOwnCodes <> 0", 1, 1},
        {"SELECT COUNT(*) FROM T_OwnCode", 2, any},
        // Hand input both as empty text and as Null; blank, Null, foreign and unknown currencies; every
        // package mode and a Null one; a few records in the waste box.
        {"SELECT COUNT(*) FROM T_Delivery WHERE F00002 IS NULL", 1, any},
        {"SELECT COUNT(*) FROM T_Delivery WHERE F00002 = ''", 1, any},
        {"SELECT COUNT(DISTINCT COALESCE(F00281, '<null>')) FROM T_Delivery "
         "WHERE COALESCE(F00281, '<null>') IN ('', '   ', '<null>', 'USD', 'XYZ')", 5, 5},
        {"SELECT COUNT(DISTINCT COALESCE(QuantityType, 0)) FROM T_Delivery "
         "WHERE COALESCE(QuantityType, 0) IN (0, 1, 2, 3)", 4, 4},
        {"SELECT COUNT(*) FROM T_Delivery WHERE InDustBox <> 0", 3, 29},
        // Yen records carry a yen price only, foreign ones a foreign price only.
        {"SELECT COUNT(*) FROM T_Delivery WHERE TRIM(COALESCE(F00281, '')) = '' AND (F00282 <> '0' "
         "OR F00013 = '0') OR TRIM(COALESCE(F00281, '')) <> '' AND (F00013 <> '0' OR F00282 = '0')", 0, 0},
        {"SELECT COUNT(*) FROM T_Delivery WHERE TRIM(COALESCE(F00281, '')) <> ''", 11, any},
        // Only individual packing has package rows; they run 1, 2, ... and add up to the delivery; equal
        // packages divide it.
        {"SELECT COUNT(*) FROM T_DeliveryQTY q JOIN T_Delivery d USING (IDData) WHERE d.QuantityType IS NOT 3",
         0, 0},
        {"SELECT COUNT(*) FROM T_Delivery d WHERE QuantityType = 3 AND NOT EXISTS "
         "(SELECT 1 FROM T_DeliveryQTY q WHERE q.IDData = d.IDData)", 0, 0},
        {"SELECT COUNT(*) FROM (SELECT IDData FROM T_DeliveryQTY GROUP BY IDData "
         "HAVING MIN(Sequence) <> 1 OR MAX(Sequence) <> COUNT(*) OR MIN(CAST(Quantity AS REAL)) <= 0)", 0, 0},
        {"SELECT COUNT(*) FROM T_Delivery d JOIN (SELECT IDData, SUM(CAST(Quantity AS REAL)) AS total "
         "FROM T_DeliveryQTY GROUP BY IDData) p USING (IDData) WHERE ABS(p.total - d.F00036) > 0.0001", 0, 0},
        {"SELECT COUNT(*) FROM T_Delivery WHERE QuantityType = 2 AND "
         "(CAST(F00036 * 1000 AS INTEGER) % CAST(Quantity * 1000 AS INTEGER)) <> 0", 0, 0},
        // Every record has its buyer; F00004 is the buyer's code or one of its full codes, not always the
        // first; no two live records of one buyer share an order key.
        {"SELECT COUNT(*) FROM T_Delivery d LEFT JOIN T_Customer c USING (IDCustomer) WHERE c.IDCustomer IS NULL",
         0, 0},
        {"SELECT COUNT(*) FROM T_Delivery d JOIN T_Customer c USING (IDCustomer) WHERE d.F00004 <> c.Code "
         "AND NOT EXISTS (SELECT 1 FROM T_CustomerSubCode s WHERE s.IDCustomer = c.IDCustomer "
         "AND d.F00004 = c.Code || s.SubCode)", 0, 0},
        {"SELECT COUNT(*) FROM T_Delivery d JOIN T_Customer c USING (IDCustomer) WHERE d.F00004 <> c.Code", 1, any},
        {"SELECT COUNT(*) FROM (SELECT 1 FROM T_Delivery WHERE InDustBox = 0 "
         "GROUP BY IDCustomer, F00007, F00159 HAVING COUNT(*) > 1)", 0, 0},
        // Dates are calendar days of 2004 to 2006; the delivery period does not end before it starts.
        {"SELECT COUNT(*) FROM (SELECT F00031 AS d FROM T_Delivery UNION ALL SELECT F00039 FROM T_Delivery "
         "UNION ALL SELECT F00040 FROM T_Delivery) "
         "WHERE date(d, '+0 days') IS NOT d OR d NOT BETWEEN '2004' AND '2007'", 0, 0},
        {"SELECT COUNT(*) FROM T_Delivery WHERE F00039 > F00040", 0, 0},
    };
    // clang-format on
    for (const auto& [sql, min, max] : checks) {
        const qint64 n = count(QString::fromUtf8(sql));
        EXPECT_TRUE(n >= min && n <= max) << sql << " gives " << n;
    }
}

TEST_F(DemoDatabase, KindsPricesAndTextWidthsAreWhatTheFormExpects)
{
    const QRegularExpression exact(u"^[0-9]+(\\.[0-9]{1,5})?$"_s);
    for (const QString& price :
         texts(u"SELECT F00013 FROM T_Delivery UNION ALL SELECT F00282 FROM T_Delivery"_s))
        EXPECT_TRUE(exact.match(price).hasMatch()) << price.toStdString();
    const auto halfWidth = [](QChar c) { return c.unicode() < 0x80 || (c >= u'\uFF61' && c <= u'\uFF9F'); };
    for (const auto& [half, full] :
         {std::pair{u"F00022"_s, u"F00262"_s}, {u"F00160"_s, u"F00274"_s}, {u"F00018"_s, u"F00260"_s}}) {
        for (const QString& text : texts(u"SELECT "_s + half + u" FROM T_Delivery"_s))
            EXPECT_TRUE(std::all_of(text.begin(), text.end(), halfWidth)) << text.toStdString();
        for (const QString& text : texts(u"SELECT "_s + full + u" FROM T_Delivery"_s))
            EXPECT_TRUE(std::none_of(text.begin(), text.end(), halfWidth)) << text.toStdString();
    }
    for (int kind = 0; kind < kindCaptions().size(); ++kind)
        EXPECT_GE(count(u"SELECT COUNT(*) FROM T_Delivery WHERE "_s + kindCondition(kind)), 5)
            << kindCaptions().at(kind).toStdString();
}

} // namespace
} // namespace tolvinpt::host::test
