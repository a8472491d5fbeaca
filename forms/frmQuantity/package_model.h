#pragma once

#include "store/package_quantities.h"

#include <QAbstractTableModel>

namespace tolvinpt {

// The rows of the package grid: rows 0 to 99 hold the quantities of packages 1 to 100 (a zero is an
// empty cell), row 100 their sum. Every change of a package row is reported for that row and, when the
// sum moves, for the sum row too. UI thread only.
class PackageModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    static constexpr int SumRow = MaxPackages;

    explicit PackageModel(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    // What the operator typed into a package cell goes through the cell rule (setText).
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    // The quantity of package row `row` (0 to 99); zero for an empty cell.
    Currency value(int row) const { return m_values[std::size_t(row)]; }
    const PackageQuantities& values() const { return m_values; }
    Currency total() const { return m_total; }
    // Writes `value` into package row `row` as it stands; zero empties the cell.
    void setValue(int row, Currency value);
    // Typed or pasted text: its leading number to three decimals; nothing, zero or a negative number
    // empties the cell, more than the largest quantity is cut down to it with a beep.
    void setText(int row, const QString& text);
    // The cell's text as shown: three decimals, empty for an empty package row.
    QString text(int row) const;

private:
    QVariant cellData(const QModelIndex& index, int role) const;

    PackageQuantities m_values{};
    Currency m_total;
};

} // namespace tolvinpt
