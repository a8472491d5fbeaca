#include "host/host_objects.h"

#include "host/sql_script.h"

#include <QList>

namespace tolvinpt::host {
namespace {

class TableOwnCodes final : public OwnCodeList
{
public:
    explicit TableOwnCodes(QList<OwnCodeEntry> entries) : m_entries(std::move(entries)) {}
    QString NameOf(const QString& code) const override
    {
        for (const OwnCodeEntry& e : m_entries)
            if (e.Code == code)
                return e.Name;
        return {};
    }
    OwnCodeEntry Item(int position) const override { return m_entries.at(position - 1); }
    int Count() const override { return int(m_entries.size()); }

private:
    QList<OwnCodeEntry> m_entries;
};

struct CompanyRow
{
    QString ownName;
    QString ownCode;
    bool multipleOwnCodes = false;
    bool useQuantityBreakdown = false;
    bool viewOnly = false;
};

class TableCompany final : public CompanySettings
{
public:
    TableCompany(QString connectionName, CompanyRow row, QList<OwnCodeEntry> codes)
        : m_connectionName(std::move(connectionName)), m_row(std::move(row)), m_codes(std::move(codes))
    {
    }
    bool MultipleOwnCodes() const override { return m_row.multipleOwnCodes; }
    const tolvinpt::OwnCodeList& OwnCodeList() const override { return m_codes; }
    QSqlDatabase Database() const override { return QSqlDatabase::database(m_connectionName, false); }
    bool UseQuantityBreakdown() const override { return m_row.useQuantityBreakdown; }
    QString OwnName() const override { return m_row.ownName; }
    QString OwnCode() const override { return m_row.ownCode; }
    bool ViewOnly() const override { return m_row.viewOnly; }

private:
    QString m_connectionName;
    CompanyRow m_row;
    TableOwnCodes m_codes;
};

struct SubCodeRow
{
    QString subCode;
    QString name;
};

struct CustomerRow
{
    long id = 0;
    QString code;
    QString name;
    bool deleted = false;
    bool noQuantityBreakdown = false;
    bool lenientEntry = false;
    bool hideQuantityFrame = false;
    QList<SubCodeRow> subCodes;
};

// One customer with its settings and both option objects: all read-only views of one row.
class TableCustomer final : public Customer, CustomerSettings, CustomerEntryOptions, CustomerDisplayOptions
{
public:
    explicit TableCustomer(CustomerRow row) : m_row(std::move(row)) {}
    bool Deleted() const override { return m_row.deleted; }
    std::vector<SubCodeEntry> SubCodes() const override
    {
        std::vector<SubCodeEntry> entries;
        for (const SubCodeRow& s : m_row.subCodes)
            entries.push_back({s.subCode});
        return entries;
    }
    const CustomerSettings& Settings() const override { return *this; }
    long CustomerID() const override { return m_row.id; }
    QString CustomerCode() const override { return m_row.code; }
    QString CustomerName() const override { return m_row.name; }
    QString NameOfCode(const QString& fullCode) const override
    {
        if (fullCode == m_row.code)
            return m_row.name;
        const SubCodeRow* sub = subCodeFor(fullCode);
        return sub ? sub->name : QString();
    }
    // True when `code` is this customer's code or one of its full codes.
    bool answersTo(const QString& code) const { return code == m_row.code || subCodeFor(code); }

    bool NoQuantityBreakdown() const override { return m_row.noQuantityBreakdown; }
    const CustomerEntryOptions& EntryOptions() const override { return *this; }
    const CustomerDisplayOptions& DisplayOptions() const override { return *this; }
    bool LenientEntry() const override { return m_row.lenientEntry; }
    bool HideQuantityFrame() const override { return m_row.hideQuantityFrame; }

private:
    const SubCodeRow* subCodeFor(const QString& fullCode) const
    {
        for (const SubCodeRow& s : m_row.subCodes)
            if (fullCode == m_row.code + s.subCode)
                return &s;
        return nullptr;
    }

    CustomerRow m_row;
};

class TableCustomers final : public CustomerList
{
public:
    explicit TableCustomers(const QList<CustomerRow>& rows)
    {
        for (const CustomerRow& row : rows)
            m_customers.push_back(std::make_shared<TableCustomer>(row));
    }
    int Count() const override { return int(m_customers.size()); }
    std::shared_ptr<Customer> At(int index) const override { return m_customers.at(std::size_t(index)); }
    std::shared_ptr<Customer> ByKey(const QString& idText) const override
    {
        bool isNumber = false;
        const long id = idText.trimmed().toLong(&isNumber);
        if (!isNumber)
            return nullptr;
        for (const auto& c : m_customers)
            if (c->CustomerID() == id)
                return c;
        return nullptr;
    }
    std::shared_ptr<Customer> ByCode(const QString& code) const override
    {
        // The entry form shows a buyer's code or a full code with one of its sub-codes.
        for (const auto& c : m_customers)
            if (c->answersTo(code))
                return c;
        return nullptr;
    }

private:
    std::vector<std::shared_ptr<TableCustomer>> m_customers;
};

bool flag(const QVariant& value)
{
    return value.toLongLong() != 0;
}

class TableHostObjects final : public HostObjects
{
public:
    explicit TableHostObjects(QString connectionName) : m_connectionName(std::move(connectionName)) {}

    std::shared_ptr<CompanySettings> CreateCompanySettings() override
    {
        const QSqlDatabase db = QSqlDatabase::database(m_connectionName, false);
        CompanyRow row;
        QSqlQuery company =
            execQuery(db, QStringLiteral("SELECT OwnName, OwnCode, MultipleOwnCodes, UseQuantityBreakdown, "
                                         "ViewOnly FROM T_Company WHERE ID = 1"));
        if (company.next())
            row = {company.value(0).toString(), company.value(1).toString(), flag(company.value(2)),
                   flag(company.value(3)), flag(company.value(4))};
        QList<OwnCodeEntry> codes;
        QSqlQuery own = execQuery(db, QStringLiteral("SELECT Name, Code FROM T_OwnCode ORDER BY Position"));
        while (own.next())
            codes.append({own.value(0).toString(), own.value(1).toString()});
        return std::make_shared<TableCompany>(m_connectionName, row, codes);
    }

    std::shared_ptr<CustomerList> CreateCustomerList() override
    {
        const QSqlDatabase db = QSqlDatabase::database(m_connectionName, false);
        QList<CustomerRow> rows;
        QSqlQuery customers = execQuery(
            db, QStringLiteral(
                    "SELECT c.IDCustomer, c.Code, c.Name, c.Deleted, COALESCE(s.NoQuantityBreakdown, 0), "
                    "COALESCE(s.LenientEntry, 0), COALESCE(s.HideQuantityFrame, 0) "
                    "FROM T_Customer c LEFT JOIN T_CustomerSettings s ON s.IDCustomer = c.IDCustomer "
                    "ORDER BY c.IDCustomer"));
        while (customers.next())
            rows.append({long(customers.value(0).toLongLong()),
                         customers.value(1).toString(),
                         customers.value(2).toString(),
                         flag(customers.value(3)),
                         flag(customers.value(4)),
                         flag(customers.value(5)),
                         flag(customers.value(6)),
                         {}});
        QSqlQuery subCodes = execQuery(
            db, QStringLiteral(
                    "SELECT IDCustomer, SubCode, Name FROM T_CustomerSubCode ORDER BY IDCustomer, Position"));
        while (subCodes.next())
            for (CustomerRow& row : rows)
                if (row.id == subCodes.value(0).toLongLong())
                    row.subCodes.append({subCodes.value(1).toString(), subCodes.value(2).toString()});
        return std::make_shared<TableCustomers>(rows);
    }

private:
    QString m_connectionName;
};

} // namespace

std::shared_ptr<HostObjects> makeHostObjects(const QString& connectionName)
{
    return std::make_shared<TableHostObjects>(connectionName);
}

} // namespace tolvinpt::host
