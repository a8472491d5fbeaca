#include "host/delivery_filter.h"

#include "host/delivery_list_model.h"

namespace tolvinpt::host {

DeliveryFilter::DeliveryFilter(QObject* parent) : QSortFilterProxyModel(parent)
{
    setSortRole(DeliveryListModel::SortRole);
}

void DeliveryFilter::setCustomer(std::optional<qint64> customerId)
{
    m_customerId = customerId;
    invalidateFilter();
}

void DeliveryFilter::setKind(const QString& caption)
{
    m_kind = caption;
    invalidateFilter();
}

void DeliveryFilter::setShowWasteBox(bool show)
{
    m_showWasteBox = show;
    invalidateFilter();
}

bool DeliveryFilter::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const
{
    const QModelIndex index = sourceModel()->index(sourceRow, 0, sourceParent);
    if (!m_showWasteBox && index.data(DeliveryListModel::WasteBoxRole).toBool())
        return false;
    if (m_customerId && index.data(DeliveryListModel::CustomerIdRole).toLongLong() != *m_customerId)
        return false;
    return m_kind.isEmpty() || index.data(DeliveryListModel::KindRole).toString() == m_kind;
}

} // namespace tolvinpt::host
