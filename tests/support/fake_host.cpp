#include "tests/support/fake_host.h"

#include <optional>
#include <stdexcept>

namespace tolvinpt::test {
namespace {

std::optional<Fault> faultOf(const FakeHostData& d, const char* member)
{
    const auto it = d.faults.constFind(QString::fromLatin1(member));
    return it == d.faults.cend() ? std::nullopt : std::optional(*it);
}

// Every call of a member: throws when the member is armed to throw.
void call(const FakeHostData& d, const char* member)
{
    if (faultOf(d, member) == Fault::Throws)
        throw std::runtime_error(std::string("fake host: ") + member + " failed");
    if (faultOf(d, member) == Fault::ThrowsForeign)
        throw 42;
}

// A call of a member that can also misbehave by its result: whether it is armed with `fault`.
bool armed(const FakeHostData& d, const char* member, Fault fault)
{
    call(d, member);
    return faultOf(d, member) == fault;
}

class FakeOwnCodes final : public OwnCodeList
{
public:
    explicit FakeOwnCodes(const FakeHostData& d) : d(d) {}
    QString NameOf(const QString& code) const override
    {
        call(d, "NameOf");
        for (const auto& e : d.ownCodes)
            if (e.Code == code)
                return e.Name;
        return {};
    }
    OwnCodeEntry Item(int position) const override { return call(d, "Item"), d.ownCodes.at(position - 1); }
    int Count() const override { return call(d, "OwnCodeCount"), static_cast<int>(d.ownCodes.size()); }

private:
    const FakeHostData& d;
};

class FakeCompany final : public CompanySettings
{
public:
    explicit FakeCompany(const FakeHostData& d) : d(d), codes(d) {}
    bool MultipleOwnCodes() const override { return call(d, "MultipleOwnCodes"), d.multipleOwnCodes; }
    const tolvinpt::OwnCodeList& OwnCodeList() const override { return call(d, "OwnCodeList"), codes; }
    QSqlDatabase Database() const override
    {
        if (armed(d, "Database", Fault::ReturnsNull))
            return {};
        return QSqlDatabase::database(d.connectionName, false);
    }
    bool UseQuantityBreakdown() const override
    {
        return call(d, "UseQuantityBreakdown"), d.useQuantityBreakdown;
    }
    QString OwnName() const override { return call(d, "OwnName"), d.ownName; }
    QString OwnCode() const override { return call(d, "OwnCode"), d.ownCode; }
    bool ViewOnly() const override { return call(d, "ViewOnly"), d.viewOnly; }

private:
    const FakeHostData& d;
    FakeOwnCodes codes;
};

class FakeCustomer final : public Customer, CustomerSettings, CustomerEntryOptions, CustomerDisplayOptions
{
public:
    FakeCustomer(const FakeHostData& d, FakeCustomerData c) : d(d), c(std::move(c)) {}
    bool Deleted() const override { return call(d, "Deleted"), c.deleted; }
    std::vector<SubCodeEntry> SubCodes() const override
    {
        call(d, "SubCodes");
        std::vector<SubCodeEntry> list;
        for (const auto& s : c.subCodes)
            list.push_back({s});
        return list;
    }
    const CustomerSettings& Settings() const override { return call(d, "Settings"), *this; }
    long CustomerID() const override { return c.id; }
    QString CustomerCode() const override { return c.code; }
    QString CustomerName() const override { return c.name; }
    QString NameOfCode(const QString& fullCode) const override
    {
        return call(d, "NameOfCode"), c.name + u' ' + fullCode;
    }
    bool NoQuantityBreakdown() const override
    {
        return call(d, "NoQuantityBreakdown"), c.noQuantityBreakdown;
    }
    const CustomerEntryOptions& EntryOptions() const override { return *this; }
    const CustomerDisplayOptions& DisplayOptions() const override { return *this; }
    bool LenientEntry() const override { return call(d, "LenientEntry"), c.lenientEntry; }
    bool HideQuantityFrame() const override { return call(d, "HideQuantityFrame"), c.hideQuantityFrame; }

private:
    const FakeHostData& d;
    FakeCustomerData c;
};

class FakeCustomers final : public CustomerList
{
public:
    explicit FakeCustomers(const FakeHostData& d) : d(d)
    {
        for (const auto& c : d.customers)
            list.push_back(std::make_shared<FakeCustomer>(d, c));
    }
    int Count() const override
    {
        return static_cast<int>(list.size()) + (armed(d, "Count", Fault::OneTooMany) ? 1 : 0);
    }
    std::shared_ptr<Customer> At(int index) const override
    {
        return armed(d, "At", Fault::ReturnsNull) ? nullptr : list.at(index);
    }
    std::shared_ptr<Customer> ByKey(const QString& idText) const override
    {
        call(d, "ByKey");
        for (const auto& c : list)
            if (QString::number(c->CustomerID()) == idText.trimmed())
                return c;
        return nullptr;
    }
    std::shared_ptr<Customer> ByCode(const QString& code) const override
    {
        call(d, "ByCode");
        for (const auto& c : list)
            if (c->CustomerCode() == code)
                return c;
        return nullptr;
    }

private:
    const FakeHostData& d;
    std::vector<std::shared_ptr<Customer>> list;
};

class FakeFactory final : public HostObjects
{
public:
    explicit FakeFactory(FakeHostData& d) : d(d) {}
    std::shared_ptr<CompanySettings> CreateCompanySettings() override
    {
        if (armed(d, "CreateCompanySettings", Fault::ReturnsNull))
            return nullptr;
        return std::make_shared<FakeCompany>(d);
    }
    std::shared_ptr<CustomerList> CreateCustomerList() override
    {
        if (armed(d, "CreateCustomerList", Fault::ReturnsNull))
            return nullptr;
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
