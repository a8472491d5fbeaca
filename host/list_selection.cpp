#include "host/list_selection.h"

#include <algorithm>

namespace tolvinpt::host {

QList<RowSpan> rowSpans(const QItemSelection& selection)
{
    QList<RowSpan> spans;
    for (const QItemSelectionRange& range : selection)
        if (range.isValid())
            spans.append({range.top(), range.bottom()});
    std::sort(spans.begin(), spans.end(),
              [](const RowSpan& a, const RowSpan& b) { return a.first < b.first; });
    QList<RowSpan> merged;
    for (const RowSpan& span : spans) {
        if (!merged.isEmpty() && span.first <= merged.last().last + 1)
            merged.last().last = std::max(merged.last().last, span.last);
        else
            merged.append(span);
    }
    return merged;
}

QList<RowSpan> spansOfRows(const QList<int>& rows)
{
    QList<RowSpan> spans;
    for (int row : rows) {
        if (!spans.isEmpty() && row == spans.last().last + 1)
            spans.last().last = row;
        else
            spans.append({row, row});
    }
    return spans;
}

QItemSelection selectionOf(const QList<RowSpan>& spans, const QAbstractItemModel& model)
{
    QItemSelection selection;
    const int lastColumn = model.columnCount() - 1;
    for (const RowSpan& span : spans)
        selection.append(QItemSelectionRange(model.index(span.first, 0), model.index(span.last, lastColumn)));
    return selection;
}

QList<qint64> selectedIds(const QItemSelectionModel& selection)
{
    const auto* model = qobject_cast<const DeliveryListModel*>(selection.model());
    return model ? model->idsOfRows(rowSpans(selection.selection())) : QList<qint64>();
}

Items itemsOf(const QList<qint64>& ids)
{
    Items items;
    for (qint64 id : ids)
        items.Add(ListKey(id));
    return items;
}

} // namespace tolvinpt::host
