// The delivered library, loaded as a host loads it.
#include <tolvinpt/fmInput.h>

#include <gtest/gtest.h>

namespace {

class NoHost final : public tolvinpt::HostObjects
{
    struct Company final : tolvinpt::CompanySettings
    {
        struct Codes final : tolvinpt::OwnCodeList
        {
            QString NameOf(const QString&) const override { return {}; }
            tolvinpt::OwnCodeEntry Item(int) const override { return {}; }
            int Count() const override { return 0; }
        } codes;
        bool MultipleOwnCodes() const override { return false; }
        const tolvinpt::OwnCodeList& OwnCodeList() const override { return codes; }
        QSqlDatabase Database() const override { return {}; }
        bool UseQuantityBreakdown() const override { return false; }
        QString OwnName() const override { return {}; }
        QString OwnCode() const override { return {}; }
        bool ViewOnly() const override { return false; }
    };
    struct Customers final : tolvinpt::CustomerList
    {
        int Count() const override { return 0; }
        std::shared_ptr<tolvinpt::Customer> At(int) const override { return nullptr; }
        std::shared_ptr<tolvinpt::Customer> ByKey(const QString&) const override { return nullptr; }
        std::shared_ptr<tolvinpt::Customer> ByCode(const QString&) const override { return nullptr; }
    };
    std::shared_ptr<tolvinpt::CompanySettings> CreateCompanySettings() override
    {
        return std::make_shared<Company>();
    }
    std::shared_ptr<tolvinpt::CustomerList> CreateCustomerList() override { return std::make_shared<Customers>(); }
};

} // namespace

TEST(Library, AnswersItsVersionFileNameAndDescription)
{
    tolvinpt::RegisterHostObjects(std::make_shared<NoHost>());
    tolvinpt::fmInput input;
    EXPECT_EQ(input.GetDllVersion(), QStringLiteral("50.0.1"));
    EXPECT_EQ(input.GetFileName(), QStringLiteral("TOLVINPT"));
    EXPECT_EQ(input.GetFileDescription(), QStringLiteral("Delivery-Data Entry"));
    tolvinpt::RegisterHostObjects(nullptr);
}

TEST(Library, ErrorsCrossTheLibraryBoundaryWithTheirType)
{
    tolvinpt::RegisterHostObjects(nullptr);
    EXPECT_THROW(tolvinpt::fmInput(), tolvinpt::Error);
}
