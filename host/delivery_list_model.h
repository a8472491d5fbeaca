#pragma once

#include <QAbstractTableModel>
#include <QList>
#include <QSqlDatabase>

namespace tolvinpt::host {

// One line of the delivery list, as read from T_Delivery and the customer master.
struct DeliveryLine
{
    qint64 id = 0;
    qint64 customerId = 0;
    QString customerName;
    QString kind;
    QString orderNumber;
    QString deliveryKey;
    QString itemName;
    QVariant deliveryQuantity;
    QString unit;
    QString currency;
    QString dueDate; // ISO dates, empty when Null
    QString shipDate;
    QString deliveryDate;
    bool inWasteBox = false;
};

// Every delivery record of the database, waste box included; filtering is DeliveryFilter's job.
class DeliveryListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column {
        Id,
        CustomerName,
        Kind,
        OrderNumber,
        DeliveryKey,
        ItemName,
        DeliveryQuantity,
        Unit,
        Currency,
        DueDate,
        ShipDate,
        DeliveryDate,
        ColumnCount
    };
    enum Role {
        SortRole = Qt::UserRole, // numbers as numbers, dates as ISO text
        IdRole,                  // IDData
        CustomerIdRole,
        KindRole,     // kind caption
        WasteBoxRole, // true for a record in the waste box
    };

    explicit DeliveryListModel(QObject* parent = nullptr);

    // Reads the list anew; throws tolvinpt::Error when the tables cannot be read.
    void reload(const QSqlDatabase& db);
    const DeliveryLine& line(int row) const { return m_lines.at(row); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QList<DeliveryLine> m_lines;
};

// "#0.###": up to three decimals, no trailing zeros.
QString formatQuantity(const QVariant& value);

} // namespace tolvinpt::host
