#include "host/delivery_list_model.h"

#include "host/record_kind.h"
#include "host/sql_script.h"

#include <QBrush>
#include <QDate>
#include <QFont>
#include <QGuiApplication>
#include <QPalette>

namespace tolvinpt::host {
namespace {

const char16_t* const kHeaders[] = {u"ID",       u"得意先", u"種別", u"注文番号", u"納品ｷｰ番号", u"品名",
                                    u"納入数量", u"単位",   u"通貨", u"納期",     u"出荷日",     u"納入日"};
static_assert(std::size(kHeaders) == DeliveryListModel::ColumnCount);

QString isoDate(const QVariant& value)
{
    return value.isNull() ? QString() : value.toString().left(10);
}

QString shownDate(const QString& iso)
{
    const QDate date = QDate::fromString(iso, Qt::ISODate);
    return date.isValid() ? date.toString(QStringLiteral("yyyy/MM/dd")) : iso;
}

// Yen is stored as empty text, blanks or Null and shown as JPY.
QString shownCurrency(const QVariant& value)
{
    const QString code = value.toString().trimmed();
    return code.isEmpty() ? QStringLiteral("JPY") : code;
}

} // namespace

QString formatQuantity(const QVariant& value)
{
    if (value.isNull())
        return {};
    QString text = QString::number(value.toDouble(), 'f', 3);
    while (text.endsWith(u'0'))
        text.chop(1);
    if (text.endsWith(u'.'))
        text.chop(1);
    return text;
}

DeliveryListModel::DeliveryListModel(QObject* parent) : QAbstractTableModel(parent)
{
}

void DeliveryListModel::reload(const QSqlDatabase& db)
{
    QSqlQuery q = execQuery(
        db, QStringLiteral(
                "SELECT d.IDData, d.IDCustomer, c.Name, d.F00002, d.F00030, d.F00007, d.F00159, d.F00262, "
                "d.F00022, "
                "d.F00036, d.F00012, d.F00281, d.F00031, d.F00039, d.F00040, d.InDustBox "
                "FROM T_Delivery d LEFT JOIN T_Customer c ON c.IDCustomer = d.IDCustomer ORDER BY d.IDData"));
    QList<DeliveryLine> lines;
    while (q.next()) {
        DeliveryLine l;
        l.id = q.value(0).toLongLong();
        l.customerId = q.value(1).toLongLong();
        l.customerName = q.value(2).toString();
        l.kind = kindCaption(q.value(3), q.value(4));
        l.orderNumber = q.value(5).toString();
        l.deliveryKey = q.value(6).toString();
        // The full-width item name reads best; hand input may carry only the half-width one.
        l.itemName = q.value(7).toString().isEmpty() ? q.value(8).toString() : q.value(7).toString();
        l.deliveryQuantity = q.value(9);
        l.unit = q.value(10).toString();
        l.currency = shownCurrency(q.value(11));
        l.dueDate = isoDate(q.value(12));
        l.shipDate = isoDate(q.value(13));
        l.deliveryDate = isoDate(q.value(14));
        l.inWasteBox = q.value(15).toLongLong() != 0;
        lines.append(l);
    }
    beginResetModel();
    m_lines = std::move(lines);
    endResetModel();
}

int DeliveryListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_lines.size());
}

int DeliveryListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant DeliveryListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const DeliveryLine& l = m_lines.at(index.row());
    switch (role) {
    case IdRole:
        return l.id;
    case CustomerIdRole:
        return l.customerId;
    case KindRole:
        return l.kind;
    case WasteBoxRole:
        return l.inWasteBox;
    case Qt::TextAlignmentRole:
        return index.column() == Id || index.column() == DeliveryQuantity
                   ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
                   : QVariant();
    case Qt::ForegroundRole:
        return l.inWasteBox ? QVariant(QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text))
                            : QVariant();
    case Qt::FontRole: {
        if (!l.inWasteBox)
            return {};
        QFont font;
        font.setStrikeOut(true);
        return font;
    }
    case Qt::DisplayRole:
    case SortRole:
        break;
    default:
        return {};
    }
    const bool display = role == Qt::DisplayRole;
    switch (index.column()) {
    case Id:
        return display ? QVariant(QString::number(l.id)) : QVariant(l.id);
    case CustomerName:
        return l.customerName;
    case Kind:
        return l.kind;
    case OrderNumber:
        return l.orderNumber;
    case DeliveryKey:
        return l.deliveryKey;
    case ItemName:
        return l.itemName;
    case DeliveryQuantity:
        return display ? QVariant(formatQuantity(l.deliveryQuantity))
                       : QVariant(l.deliveryQuantity.toDouble());
    case Unit:
        return l.unit;
    case Currency:
        return l.currency;
    case DueDate:
        return display ? shownDate(l.dueDate) : l.dueDate;
    case ShipDate:
        return display ? shownDate(l.shipDate) : l.shipDate;
    case DeliveryDate:
        return display ? shownDate(l.deliveryDate) : l.deliveryDate;
    default:
        return {};
    }
}

QVariant DeliveryListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= ColumnCount)
        return QAbstractTableModel::headerData(section, orientation, role);
    return QString::fromUtf16(kHeaders[section]);
}

} // namespace tolvinpt::host
