#include "tests/support/fake_host.h"

namespace tolvinpt::test {
namespace {

class FakeOwnCodes final : public OwnCodeList
{
public:
    explicit FakeOwnCodes(const FakeHostData& d) : d(d) {}
    QString NameOf(const QString& code) const override
    {
        for (const auto& e : d.ownCodes)
            if (e.Code == code)
                return e.Name;
        return {};
    }
    OwnCodeEntry Item(int position) const override { return d.ownCodes.at(position - 1); }
    int Count() const override { return static_cast<int>(d.ownCodes.size()); }

private:
    const FakeHostData& d;
};

class FakeCompany final : public CompanySettings
{
public:
    explicit FakeCompany(const FakeHostData& d) : d(d), codes(d) {}
    bool MultipleOwnCodes() const override { return d.multipleOwnCodes; }
    const tolvinpt::OwnCodeList& OwnCodeList() const override { return codes; }
    QSqlDatabase Database() const override { return QSqlDatabase::database(d.connectionName, false); }
    bool UseQuantityBreakdown() const override { return d.useQuantityBreakdown; }
    QString OwnName() const override { return d.ownName; }
    QString OwnCode() const override { return d.ownCode; }
    bool ViewOnly() const override { return d.viewOnly; }

private:
    const FakeHostData& d;
    FakeOwnCodes codes;
};

class FakeCustomer final : public Customer, CustomerSettings, CustomerEntryOptions, CustomerDisplayOptions
{
public:
    explicit FakeCustomer(FakeCustomerData c) : c(std::move(c)) {}
    bool Deleted() const override { return c.deleted; }
    std::vector<SubCodeEntry> SubCodes() const override
    {
        std::vector<SubCodeEntry> list;
        for (const auto& s : c.subCodes)
            list.push_back({s});
        return list;
    }
    const CustomerSettings& Settings() const override { return *this; }
    long CustomerID() const override { return c.id; }
    QString CustomerCode() const override { return c.code; }
    QString CustomerName() const override { return c.name; }
    QString NameOfCode(const QString& fullCode) const override { return c.name + u' ' + fullCode; }
    bool NoQuantityBreakdown() const override { return c.noQuantityBreakdown; }
    const CustomerEntryOptions& EntryOptions() const override { return *this; }
    const CustomerDisplayOptions& DisplayOptions() const override { return *this; }
    bool LenientEntry() const override { return c.lenientEntry; }
    bool HideQuantityFrame() const override { return c.hideQuantityFrame; }

private:
    FakeCustomerData c;
};

class FakeCustomers final : public CustomerList
{
public:
    explicit FakeCustomers(const FakeHostData& d)
    {
        for (const auto& c : d.customers)
            list.push_back(std::make_shared<FakeCustomer>(c));
    }
    int Count() const override { return static_cast<int>(list.size()); }
    std::shared_ptr<Customer> At(int index) const override { return list.at(index); }
    std::shared_ptr<Customer> ByKey(const QString& idText) const override
    {
        for (const auto& c : list)
            if (QString::number(c->CustomerID()) == idText.trimmed())
                return c;
        return nullptr;
    }
    std::shared_ptr<Customer> ByCode(const QString& code) const override
    {
        for (const auto& c : list)
            if (c->CustomerCode() == code)
                return c;
        return nullptr;
    }

private:
    std::vector<std::shared_ptr<Customer>> list;
};

class FakeFactory final : public HostObjects
{
public:
    explicit FakeFactory(FakeHostData& d) : d(d) {}
    std::shared_ptr<CompanySettings> CreateCompanySettings() override
    {
        ++d.companySettingsCreated;
        return std::make_shared<FakeCompany>(d);
    }
    std::shared_ptr<CustomerList> CreateCustomerList() override
    {
        ++d.customerListsCreated;
        return std::make_shared<FakeCustomers>(d);
    }

private:
    FakeHostData& d;
};

} // namespace

void registerFakeHost(FakeHostData& data)
{
    RegisterHostObjects(std::make_shared<FakeFactory>(data));
}

} // namespace tolvinpt::test
