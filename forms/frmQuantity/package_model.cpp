#include "forms/frmQuantity/package_model.h"

#include "forms/frmData/number_rules.h"
#include "platform/values/number_text.h"
#include "platform/widgets/guarded.h"
#include "platform/widgets/messages.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>

namespace tolvinpt {
namespace {

constexpr QStringView SumCaption = u"合計";
constexpr QStringView ColumnCaption = u"入数";

QString shown(Currency value)
{
    return formatFixed(value.toDecimal(), frmdata::QuantityDecimals);
}

} // namespace

PackageModel::PackageModel(QObject* parent) : QAbstractTableModel(parent)
{
}

int PackageModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : SumRow + 1;
}

int PackageModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 1;
}

QVariant PackageModel::data(const QModelIndex& index, int role) const
{
    return guardedCall([&] { return cellData(index, role); }, QVariant());
}

QVariant PackageModel::cellData(const QModelIndex& index, int role) const
{
    const bool sum = index.row() == SumRow;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return sum ? shown(m_total) : text(index.row());
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    case Qt::FontRole:
        if (sum) {
            QFont bold;
            bold.setBold(true);
            return bold;
        }
        return {};
    case Qt::BackgroundRole:
        return sum ? QVariant(QGuiApplication::palette().button()) : QVariant();
    default:
        return {};
    }
}

QVariant PackageModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    if (orientation == Qt::Horizontal)
        return ColumnCaption.toString();
    return section == SumRow ? SumCaption.toString() : QString::number(section + 1);
}

Qt::ItemFlags PackageModel::flags(const QModelIndex& index) const
{
    // The sum row is shown, never selected or edited.
    if (index.row() == SumRow)
        return Qt::ItemIsEnabled;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable;
}

bool PackageModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || index.row() == SumRow)
        return false;
    return guardedCall(
        [&] {
            setText(index.row(), value.toString());
            return true;
        },
        false);
}

void PackageModel::setValue(int row, Currency value)
{
    Currency& cell = m_values[std::size_t(row)];
    if (cell == value)
        return;
    const Currency before = m_total;
    m_total = m_total - cell + value;
    cell = value;
    emit dataChanged(index(row, 0), index(row, 0));
    if (m_total != before)
        emit dataChanged(index(SumRow, 0), index(SumRow, 0));
}

void PackageModel::setText(int row, const QString& text)
{
    Currency value = frmdata::readQuantity(text);
    if (value < Currency())
        value = Currency();
    if (value > frmdata::MaxQuantity) {
        messages().beep();
        value = frmdata::MaxQuantity;
    }
    setValue(row, value);
}

QString PackageModel::text(int row) const
{
    const Currency value = m_values[std::size_t(row)];
    return value.isZero() ? QString() : shown(value);
}

} // namespace tolvinpt
