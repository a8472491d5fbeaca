// The host objects answer what the host tables hold, read anew for every component object.
#include "tests/host/host_fixture.h"

#include "host/host_objects.h"

#include <tolvinpt/fmInput.h>

namespace tolvinpt::host::test {
namespace {

class HostObjectsTest : public DemoDatabaseTest
{
protected:
    void exec(const QString& sql)
    {
        QSqlQuery query(QSqlDatabase::database(connection, false));
        ASSERT_TRUE(query.exec(sql)) << sql.toStdString();
    }

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
    for (int i = 0; i < customers->Count(); ++i) {
        const auto customer = customers->At(i);
        const QString id = QString::number(customer->CustomerID());
        const auto flag = [&](const char* column) {
            return scalar(connection,
                          QStringLiteral("SELECT COALESCE((SELECT %1 FROM T_CustomerSettings WHERE "
                                         "IDCustomer = %2), 0)")
                              .arg(QString::fromLatin1(column), id))
                       .toInt() != 0;
        };
        SCOPED_TRACE(customer->CustomerName().toStdString());
        EXPECT_EQ(
            customer->Deleted(),
            scalar(connection, QStringLiteral("SELECT Deleted FROM T_Customer WHERE IDCustomer = ") + id)
                    .toInt() != 0);
        EXPECT_EQ(customer->Settings().NoQuantityBreakdown(), flag("NoQuantityBreakdown"));
        EXPECT_EQ(customer->Settings().EntryOptions().LenientEntry(), flag("LenientEntry"));
        EXPECT_EQ(customer->Settings().DisplayOptions().HideQuantityFrame(), flag("HideQuantityFrame"));
        EXPECT_EQ(qint64(customer->SubCodes().size()),
                  count(QStringLiteral("SELECT COUNT(*) FROM T_CustomerSubCode WHERE IDCustomer = ") + id));
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
    struct Lookup
    {
        const char16_t* key;
        long expected; // 0: none
    };
    // The component passes the record id as trimmed decimal text, possibly with blanks around it.
    for (const Lookup& l :
         {Lookup{u" 3 ", 3}, Lookup{u"6", 6}, Lookup{u"99", 0}, Lookup{u"3x", 0}, Lookup{u"", 0}}) {
        const auto found = customers->ByKey(QString::fromUtf16(l.key));
        EXPECT_EQ(found ? found->CustomerID() : 0, l.expected) << QString::fromUtf16(l.key).toStdString();
    }
    EXPECT_TRUE(customers->ByKey(QStringLiteral("6"))->Deleted());

    // By code: the customer's code or a full code with one of its sub-codes.
    for (const Lookup& l : {Lookup{u"7788", 3}, Lookup{u"0012345678901", 2}, Lookup{u"0012345678901C3", 2},
                            Lookup{u"2468013520", 7}, Lookup{u"0012345678901Z9", 0}, Lookup{u"778", 0}}) {
        const auto found = customers->ByCode(QString::fromUtf16(l.key));
        EXPECT_EQ(found ? found->CustomerID() : 0, l.expected) << QString::fromUtf16(l.key).toStdString();
    }
}

// Passes the host's objects on and counts how often the component asks for them.
class CountingObjects final : public HostObjects
{
public:
    explicit CountingObjects(std::shared_ptr<HostObjects> inner) : m_inner(std::move(inner)) {}
    std::shared_ptr<CompanySettings> CreateCompanySettings() override
    {
        ++companies;
        return m_inner->CreateCompanySettings();
    }
    std::shared_ptr<CustomerList> CreateCustomerList() override
    {
        ++customerLists;
        return m_inner->CreateCustomerList();
    }
    int companies = 0;
    int customerLists = 0;

private:
    std::shared_ptr<HostObjects> m_inner;
};

TEST_F(HostObjectsTest, EveryNewComponentObjectSeesTheTablesAsTheyAreNow)
{
    const auto before = objects->CreateCustomerList();
    exec(QStringLiteral("UPDATE T_Customer SET Deleted = 1 WHERE IDCustomer = 1"));
    exec(QStringLiteral("INSERT INTO T_CustomerSubCode (IDCustomer, Position, SubCode, Name) "
                        "VALUES (5, 1, 'X', '大和住設資材株式会社 千葉倉庫')"));
    const auto after = objects->CreateCustomerList();
    EXPECT_FALSE(before->ByKey(QStringLiteral("1"))->Deleted());
    EXPECT_TRUE(after->ByKey(QStringLiteral("1"))->Deleted());
    EXPECT_EQ(after->ByCode(QStringLiteral("55012X"))->CustomerID(), 5);

    // The delivered component asks the registered factory once per fmInput.
    const auto counting = std::make_shared<CountingObjects>(objects);
    RegisterHostObjects(counting);
    {
        fmInput first;
        fmInput second;
    }
    RegisterHostObjects(nullptr);
    EXPECT_EQ(counting->companies, 2);
    EXPECT_EQ(counting->customerLists, 2);
}

} // namespace
} // namespace tolvinpt::host::test
