#include "host/list_selection.h"

#include "host/delivery_list_model.h"

#include <algorithm>

namespace tolvinpt::host {

Items itemsInListOrder(const QItemSelectionModel& selection)
{
    QModelIndexList rows = selection.selectedRows();
    std::sort(rows.begin(), rows.end(),
              [](const QModelIndex& a, const QModelIndex& b) { return a.row() < b.row(); });
    Items items;
    for (const QModelIndex& row : rows)
        items.Add(row.data(DeliveryListModel::IdRole).toLongLong());
    return items;
}

} // namespace tolvinpt::host
