#include "component/state.h"

namespace tolvinpt {

std::shared_ptr<CompanySettings> gCompany;
QSqlDatabase gDB;
std::shared_ptr<CustomerList> gCustomers;

int CountActiveCustomers()
{
    int count = 0;
    for (int i = 0; i < gCustomers->Count(); ++i)
        count += gCustomers->At(i)->Deleted() ? 0 : 1;
    return count;
}

} // namespace tolvinpt
