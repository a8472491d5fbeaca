#include "component/entry_procedure.h"

namespace tolvinpt {

void OpenRecordList(Items& items)
{
    if (items.Count() == 0)
        return;
}

void OpenNewRecord()
{
}

} // namespace tolvinpt
