#pragma once

#include <QSortFilterProxyModel>

#include <optional>

namespace tolvinpt::host {

// What the delivery list shows: one customer or all, one kind or all, and the waste box or not
// (hidden by default). Sorts by DeliveryListModel::SortRole.
class DeliveryFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit DeliveryFilter(QObject* parent = nullptr);

    void setCustomer(std::optional<qint64> customerId);
    void setKind(const QString& caption); // empty: every kind
    void setShowWasteBox(bool show);
    bool showsWasteBox() const { return m_showWasteBox; }

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    std::optional<qint64> m_customerId;
    QString m_kind;
    bool m_showWasteBox = false;
};

} // namespace tolvinpt::host
