#include "component/state.h"

#include "platform/sql/sql_dialect.h"

#include <tolvinpt/error.h>

namespace tolvinpt {

std::shared_ptr<CompanySettings> gCompany;
QSqlDatabase gDB;
std::shared_ptr<CustomerList> gCustomers;

void throwObjectNotSet()
{
    throw Error(QStringLiteral("Object variable or With block variable not set"), 91);
}

const QSqlDatabase& openDatabase()
{
    if (!gDB.isValid())
        throwObjectNotSet();
    // A session the server dropped is no closed connection: the entry call opens it again.
    const db::SqlDialect* dialect = db::SqlDialect::of(gDB);
    if (!gDB.isOpen() && !(dialect && dialect->connectionLost(gDB)))
        throw Error(QStringLiteral("Object invalid or no longer set."), 3420);
    return gDB;
}

int CountActiveCustomers()
{
    const CustomerList& customers = required(gCustomers);
    int count = 0;
    for (int i = 0; i < customers.Count(); ++i)
        count += required(customers.At(i)).Deleted() ? 0 : 1;
    return count;
}

} // namespace tolvinpt
