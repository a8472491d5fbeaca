#pragma once

// The host system's objects as far as the component uses them. A host implements these interfaces and
// registers a HostObjects factory before it creates its first fmInput.

#include <tolvinpt/global.h>

#include <QSqlDatabase>
#include <QString>

#include <memory>
#include <vector>

namespace tolvinpt {

struct OwnCodeEntry
{
    QString Name;
    QString Code;
};

// The supplier's own-company codes.
class TOLVINPT_EXPORT OwnCodeList
{
public:
    virtual ~OwnCodeList();
    // Name registered for `code`; empty text for an unknown code.
    virtual QString NameOf(const QString& code) const = 0;
    // Entry at a 1-based position.
    virtual OwnCodeEntry Item(int position) const = 0;
    virtual int Count() const = 0;
};

// Settings of the supplier's own company, and the host's open database.
class TOLVINPT_EXPORT CompanySettings
{
public:
    virtual ~CompanySettings();
    virtual bool MultipleOwnCodes() const = 0;
    virtual const tolvinpt::OwnCodeList& OwnCodeList() const = 0;
    // The host's open database; the component never opens or closes it.
    virtual QSqlDatabase Database() const = 0;
    virtual bool UseQuantityBreakdown() const = 0;
    virtual QString OwnName() const = 0;
    // "*" means the code is chosen per record from OwnCodeList().
    virtual QString OwnCode() const = 0;
    virtual bool ViewOnly() const = 0;
};

struct SubCodeEntry
{
    QString SubCode;
};

// Per-customer option that waives the zero-order-quantity and empty-date warnings on save.
class TOLVINPT_EXPORT CustomerEntryOptions
{
public:
    virtual ~CustomerEntryOptions();
    virtual bool LenientEntry() const = 0;
};

// Per-customer display option.
class TOLVINPT_EXPORT CustomerDisplayOptions
{
public:
    virtual ~CustomerDisplayOptions();
    // True also hides the package frame when a record of this customer is displayed.
    virtual bool HideQuantityFrame() const = 0;
};

class TOLVINPT_EXPORT CustomerSettings
{
public:
    virtual ~CustomerSettings();
    // True hides the package frame for this customer's records.
    virtual bool NoQuantityBreakdown() const = 0;
    virtual const CustomerEntryOptions& EntryOptions() const = 0;
    virtual const CustomerDisplayOptions& DisplayOptions() const = 0;
};

// One buyer of the customer master.
class TOLVINPT_EXPORT Customer
{
public:
    virtual ~Customer();
    virtual bool Deleted() const = 0;
    virtual std::vector<SubCodeEntry> SubCodes() const = 0;
    virtual const CustomerSettings& Settings() const = 0;
    // The value stored in T_Delivery.IDCustomer.
    virtual long CustomerID() const = 0;
    virtual QString CustomerCode() const = 0;
    virtual QString CustomerName() const = 0;
    // Name registered for a full code (customer code followed by a sub-code).
    virtual QString NameOfCode(const QString& fullCode) const = 0;
};

// The customer master, enumerable in the host's order.
class TOLVINPT_EXPORT CustomerList
{
public:
    virtual ~CustomerList();
    virtual int Count() const = 0;
    // Customer at a 0-based enumeration position.
    virtual std::shared_ptr<Customer> At(int index) const = 0;
    // Lookup by the trimmed decimal text of the customer's record id; null when there is none.
    virtual std::shared_ptr<Customer> ByKey(const QString& idText) const = 0;
    // Lookup by customer code; null when there is none.
    virtual std::shared_ptr<Customer> ByCode(const QString& code) const = 0;
};

// What "create the host's object" means here: the host registers one factory, and every fmInput
// created afterwards asks it for fresh objects.
class TOLVINPT_EXPORT HostObjects
{
public:
    virtual ~HostObjects();
    virtual std::shared_ptr<CompanySettings> CreateCompanySettings() = 0;
    virtual std::shared_ptr<CustomerList> CreateCustomerList() = 0;
};

// Registers the factory; replaces any earlier one. Pass null to unregister.
TOLVINPT_EXPORT void RegisterHostObjects(std::shared_ptr<HostObjects> factory);

} // namespace tolvinpt
