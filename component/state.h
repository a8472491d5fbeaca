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

// Throws the "object not set" error (91): a host object that the call needs is missing, because the
// host's factory returned none, a host object returned none, or an fmInput was destroyed and released
// the shared objects.
[[noreturn]] void throwObjectNotSet();

// The object, or the "object not set" error.
template <typename T> T& required(const std::shared_ptr<T>& object)
{
    if (!object)
        throwObjectNotSet();
    return *object;
}

// gDB when it is an open connection (or one whose session the server dropped): "object not set" when the
// host gave none, "object invalid" (3420) when it is closed.
const QSqlDatabase& openDatabase();

// Customers not marked Deleted; counted anew on every call.
int CountActiveCustomers();

} // namespace tolvinpt
