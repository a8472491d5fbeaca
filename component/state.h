#pragma once

// Component-wide state, shared by every fmInput object and every form. Used on the UI thread only.

#include <tolvinpt/host.h>

#include <QSqlDatabase>

#include <memory>

namespace tolvinpt {

extern std::shared_ptr<CompanySettings> gCompany;
// Deliberately kept when an fmInput is destroyed: the next object replaces it.
extern QSqlDatabase gDB;
extern std::shared_ptr<CustomerList> gCustomers;

// Customers not marked Deleted; counted anew on every call.
int CountActiveCustomers();

} // namespace tolvinpt
