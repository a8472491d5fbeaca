#pragma once

#include <tolvinpt/items.h>

#include <QItemSelectionModel>

namespace tolvinpt::host {

// The IDData (DeliveryListModel::IdRole) of the selected rows, in the order in which the view's model
// shows them (top to bottom, whatever the order of selecting), each as a number.
Items itemsInListOrder(const QItemSelectionModel& selection);

} // namespace tolvinpt::host
