#pragma once

#include "host/delivery_list_model.h"

#include <tolvinpt/items.h>

#include <QItemSelection>
#include <QItemSelectionModel>

namespace tolvinpt::host {

// The rows of `selection` as spans, top to bottom, with overlapping and adjoining ranges merged.
QList<RowSpan> rowSpans(const QItemSelection& selection);
// The runs of consecutive rows in `rows` (ascending).
QList<RowSpan> spansOfRows(const QList<int>& rows);
// One range of whole rows per span: a selection of thousands of rows in a few runs stays a few ranges.
QItemSelection selectionOf(const QList<RowSpan>& spans, const QAbstractItemModel& model);

// The IDData of the selected rows of a DeliveryListModel in the order in which the list shows them (top
// to bottom, whatever the order of selecting). Reads the selected rows only; throws tolvinpt::Error.
QList<qint64> selectedIds(const QItemSelectionModel& selection);
// The ids as the component's list of records, each as its ListKey ("1234Key"): the key by which the
// component's record list finds a record again when it is saved.
Items itemsOf(const QList<qint64>& ids);

} // namespace tolvinpt::host
