// The host objects answer what the host tables hold, read anew for every component object.
#include "tests/host/host_fixture.h"

#include "host/host_objects.h"

namespace tolvinpt::host::test {

using namespace Qt::StringLiterals;
namespace {

class HostObjectsTest : public DemoDatabaseTest
{
protected:
    std::shared_ptr<HostObjects> objects = makeHostObjects(connection);
};

TEST_F(HostObjectsTest, CompanySettingsComeFromTheCompanyRow)
{
    exec(u"UPDATE T_Company SET ViewOnly = -1, UseQuantityBreakdown = 0"_s);
    const auto company = objects->CreateCompanySettings();
    EXPECT_TRUE(company->MultipleOwnCodes());
    EXPECT_EQ(company->OwnCode(), u"*"_s);
    EXPECT_EQ(company->OwnName(), u"株式会社テクノ精工"_s);
    EXPECT_TRUE(company->ViewOnly()); // any non-zero value is true
    EXPECT_FALSE(company->UseQuantityBreakdown());

    const OwnCodeList& codes = company->OwnCodeList();
    ASSERT_EQ(codes.Count(), 3);
    EXPECT_EQ(codes.Item(2).Code, u"4567002"_s);
    EXPECT_EQ(codes.NameOf(codes.Item(3).Code), codes.Item(3).Name);
    EXPECT_EQ(codes.NameOf(u"0000"_s), QString());

    // The database handed to the component is the host's open connection.
    QSqlQuery query(company->Database());
    ASSERT_TRUE(query.exec(u"SELECT COUNT(*) FROM T_Delivery"_s) && query.next());
    EXPECT_EQ(query.value(0).toInt(), 300);
}

TEST_F(HostObjectsTest, CustomersAnswerTheirFlagsSettingsAndSubCodes)
{
    const auto customers = objects->CreateCustomerList();
    ASSERT_EQ(customers->Count(), count(u"SELECT COUNT(*) FROM T_Customer"_s));
    // Deleted, the three settings (all off without a settings row), the number of sub-codes.
    const QString sql = QStringLiteral(
        "SELECT CASE WHEN c.Deleted <> 0 THEN 1000 ELSE 0 END + CASE WHEN s.NoQuantityBreakdown <> 0 "
        "THEN 100 ELSE 0 END + CASE WHEN s.LenientEntry <> 0 THEN 10 ELSE 0 END + CASE WHEN "
        "s.HideQuantityFrame <> 0 THEN 1 ELSE 0 END, (SELECT COUNT(*) FROM T_CustomerSubCode x WHERE "
        "x.IDCustomer = c.IDCustomer) FROM T_Customer c LEFT JOIN T_CustomerSettings s USING (IDCustomer) "
        "WHERE c.IDCustomer = %1");
    for (int i = 0; i < customers->Count(); ++i) {
        const auto customer = customers->At(i);
        const auto& settings = customer->Settings();
        const int flags = 1000 * customer->Deleted() + 100 * settings.NoQuantityBreakdown() +
                          10 * settings.EntryOptions().LenientEntry() +
                          settings.DisplayOptions().HideQuantityFrame();
        QSqlQuery stored(QSqlDatabase::database(connection, false));
        ASSERT_TRUE(stored.exec(sql.arg(customer->CustomerID())) && stored.next());
        EXPECT_EQ(flags, stored.value(0).toInt()) << customer->CustomerName().toStdString();
        EXPECT_EQ(qsizetype(customer->SubCodes().size()), stored.value(1).toLongLong());
    }

    // Customer 2 has three sub-codes, each with its own name under the full code, in list order.
    const auto hokuto = customers->ByKey(u"2"_s);
    ASSERT_TRUE(hokuto);
    const auto subCodes = hokuto->SubCodes();
    ASSERT_EQ(subCodes.size(), 3u);
    EXPECT_EQ(subCodes[0].SubCode, u"A1"_s);
    EXPECT_EQ(subCodes[2].SubCode, u"C3"_s);
    EXPECT_EQ(hokuto->NameOfCode(hokuto->CustomerCode() + u"B2"_s), u"株式会社北斗電子 名古屋営業所"_s);
    EXPECT_EQ(hokuto->NameOfCode(hokuto->CustomerCode()), hokuto->CustomerName());
    EXPECT_EQ(hokuto->NameOfCode(hokuto->CustomerCode() + u"ZZ"_s), QString());
}

TEST_F(HostObjectsTest, LookupsByKeyTextAndByCode)
{
    const auto customers = objects->CreateCustomerList();
    using Lookup = std::pair<const char16_t*, long>; // 0: none
    // The component passes the record id as trimmed decimal text, possibly with blanks around it.
    for (const auto& [key, expected] : {Lookup{u" 3 ", 3}, {u"6", 6}, {u"99", 0}, {u"3x", 0}, {u"", 0}}) {
        const auto found = customers->ByKey(QString::fromUtf16(key));
        EXPECT_EQ(found ? found->CustomerID() : 0, expected) << QString::fromUtf16(key).toStdString();
    }
    EXPECT_TRUE(customers->ByKey(u"6"_s)->Deleted());
    // By code: the customer's code or a full code with one of its sub-codes.
    // clang-format off
    for (const auto& [code, expected] : {Lookup{u"7788", 3}, {u"0012345678901", 2}, {u"0012345678901C3", 2},
                                         {u"2468013520", 7}, {u"0012345678901Z9", 0}, {u"778", 0}}) {
        const auto found = customers->ByCode(QString::fromUtf16(code));
        EXPECT_EQ(found ? found->CustomerID() : 0, expected) << QString::fromUtf16(code).toStdString();
    }
    // clang-format on
}

TEST_F(HostObjectsTest, EveryNewListSeesTheTablesAsTheyAreNow)
{
    const auto before = objects->CreateCustomerList();
    exec(u"UPDATE T_Customer SET Deleted = 1 WHERE IDCustomer = 1"_s);
    exec(QStringLiteral("INSERT INTO T_CustomerSubCode (IDCustomer, Position, SubCode, Name) "
                        "VALUES (5, 1, 'X', '大和住設資材株式会社 千葉倉庫')"));
    const auto after = objects->CreateCustomerList();
    EXPECT_FALSE(before->ByKey(u"1"_s)->Deleted());
    EXPECT_TRUE(after->ByKey(u"1"_s)->Deleted());
    EXPECT_EQ(after->ByCode(u"55012X"_s)->CustomerID(), 5);
}

} // namespace
} // namespace tolvinpt::host::test
