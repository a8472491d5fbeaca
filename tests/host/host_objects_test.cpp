// The host objects answer what the host tables hold, read anew for every component object.
#include "tests/host/host_fixture.h"

#include "host/host_objects.h"

namespace tolvinpt::host::test {
namespace {

class HostObjectsTest : public DemoDatabaseTest
{
protected:
    std::shared_ptr<HostObjects> objects = makeHostObjects(connection);
};

TEST_F(HostObjectsTest, CompanySettingsComeFromTheCompanyRow)
{
    exec(QStringLiteral("UPDATE T_Company SET ViewOnly = -1, UseQuantityBreakdown = 0"));
    const auto company = objects->CreateCompanySettings();
    EXPECT_TRUE(company->MultipleOwnCodes());
    EXPECT_EQ(company->OwnCode(), QStringLiteral("*"));
    EXPECT_EQ(company->OwnName(), QStringLiteral("株式会社テクノ精工"));
    EXPECT_TRUE(company->ViewOnly()); // any non-zero value is true
    EXPECT_FALSE(company->UseQuantityBreakdown());

    const OwnCodeList& codes = company->OwnCodeList();
    ASSERT_EQ(codes.Count(), 3);
    EXPECT_EQ(codes.Item(2).Code, QStringLiteral("4567002"));
    EXPECT_EQ(codes.NameOf(codes.Item(3).Code), codes.Item(3).Name);
    EXPECT_EQ(codes.NameOf(QStringLiteral("0000")), QString());

    // The database handed to the component is the host's open connection.
    QSqlQuery query(company->Database());
    ASSERT_TRUE(query.exec(QStringLiteral("SELECT COUNT(*) FROM T_Delivery")) && query.next());
    EXPECT_EQ(query.value(0).toInt(), 300);
}

TEST_F(HostObjectsTest, CustomersAnswerTheirFlagsSettingsAndSubCodes)
{
    const auto customers = objects->CreateCustomerList();
    ASSERT_EQ(customers->Count(), count(QStringLiteral("SELECT COUNT(*) FROM T_Customer")));
    // Deleted, the three settings (all off without a settings row), the number of sub-codes.
    const QString sql = QStringLiteral(
        "SELECT (c.Deleted <> 0) || (COALESCE(s.NoQuantityBreakdown, 0) <> 0) || (COALESCE(s.LenientEntry, "
        "0) <> 0) "
        "|| (COALESCE(s.HideQuantityFrame, 0) <> 0) || ',' || (SELECT COUNT(*) FROM T_CustomerSubCode x "
        "WHERE x.IDCustomer = c.IDCustomer) FROM T_Customer c LEFT JOIN T_CustomerSettings s USING "
        "(IDCustomer) "
        "WHERE c.IDCustomer = %1");
    for (int i = 0; i < customers->Count(); ++i) {
        const auto customer = customers->At(i);
        const auto& settings = customer->Settings();
        const QString answered = QStringLiteral("%1%2%3%4,%5")
                                     .arg(int(customer->Deleted()))
                                     .arg(int(settings.NoQuantityBreakdown()))
                                     .arg(int(settings.EntryOptions().LenientEntry()))
                                     .arg(int(settings.DisplayOptions().HideQuantityFrame()))
                                     .arg(customer->SubCodes().size());
        EXPECT_EQ(answered, scalar(connection, sql.arg(customer->CustomerID())).toString())
            << customer->CustomerName().toStdString();
    }

    // Customer 2 has three sub-codes, each with its own name under the full code, in list order.
    const auto hokuto = customers->ByKey(QStringLiteral("2"));
    ASSERT_TRUE(hokuto);
    const auto subCodes = hokuto->SubCodes();
    ASSERT_EQ(subCodes.size(), 3u);
    EXPECT_EQ(subCodes[0].SubCode, QStringLiteral("A1"));
    EXPECT_EQ(subCodes[2].SubCode, QStringLiteral("C3"));
    EXPECT_EQ(hokuto->NameOfCode(hokuto->CustomerCode() + QStringLiteral("B2")),
              QStringLiteral("株式会社北斗電子 名古屋営業所"));
    EXPECT_EQ(hokuto->NameOfCode(hokuto->CustomerCode()), hokuto->CustomerName());
    EXPECT_EQ(hokuto->NameOfCode(hokuto->CustomerCode() + QStringLiteral("ZZ")), QString());
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
    EXPECT_TRUE(customers->ByKey(QStringLiteral("6"))->Deleted());
    // By code: the customer's code or a full code with one of its sub-codes.
    for (const auto& [code, expected] : {Lookup{u"7788", 3},
                                         {u"0012345678901", 2},
                                         {u"0012345678901C3", 2},
                                         {u"2468013520", 7},
                                         {u"0012345678901Z9", 0},
                                         {u"778", 0}}) {
        const auto found = customers->ByCode(QString::fromUtf16(code));
        EXPECT_EQ(found ? found->CustomerID() : 0, expected) << QString::fromUtf16(code).toStdString();
    }
}

TEST_F(HostObjectsTest, EveryNewListSeesTheTablesAsTheyAreNow)
{
    const auto before = objects->CreateCustomerList();
    exec(QStringLiteral("UPDATE T_Customer SET Deleted = 1 WHERE IDCustomer = 1"));
    exec(QStringLiteral("INSERT INTO T_CustomerSubCode (IDCustomer, Position, SubCode, Name) "
                        "VALUES (5, 1, 'X', '大和住設資材株式会社 千葉倉庫')"));
    const auto after = objects->CreateCustomerList();
    EXPECT_FALSE(before->ByKey(QStringLiteral("1"))->Deleted());
    EXPECT_TRUE(after->ByKey(QStringLiteral("1"))->Deleted());
    EXPECT_EQ(after->ByCode(QStringLiteral("55012X"))->CustomerID(), 5);
}

} // namespace
} // namespace tolvinpt::host::test
