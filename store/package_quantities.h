#pragma once

#include "platform/values/currency.h"

#include <QtGlobal>

#include <array>
#include <optional>
#include <vector>

namespace tolvinpt {

constexpr int MaxPackages = 100;

// One row of T_DeliveryQTY: package `sequence` (1 to MaxPackages) of record `idData`.
struct PackageQuantity
{
    qint64 idData = 0;
    int sequence = 0;
    Currency quantity;

    friend bool operator==(const PackageQuantity&, const PackageQuantity&) = default;
};

// Per-package quantities of the record on screen: element 0 is package 1; the first zero ends the list.
using PackageQuantities = std::array<Currency, MaxPackages>;
extern PackageQuantities gPackageQty;

// Number of packages: the elements before the first zero.
int packageCount(const PackageQuantities& quantities);

// Loads stored package rows (readPackageRows) in their order: row i goes to element i, a row without a
// usable quantity leaves its element as it was, and every element after the last row becomes zero.
void loadPackageQuantities(PackageQuantities& quantities, const std::vector<std::optional<Currency>>& rows);

// The rows that store `quantities` for record `id`: one per package before the first zero, numbered 1, 2, ...
std::vector<PackageQuantity> packageRowsOf(qint64 id, const PackageQuantities& quantities);

} // namespace tolvinpt
