#pragma once

#include "platform/currency.h"

#include <array>
#include <optional>
#include <vector>

namespace tolvinpt {

constexpr int MaxPackages = 100;

// Per-package quantities of the record on screen: element 0 is package 1; the first zero ends the list.
using PackageQuantities = std::array<Currency, MaxPackages>;
extern PackageQuantities gPackageQty;

// Number of packages: the elements before the first zero.
int packageCount(const PackageQuantities& quantities);

// Loads stored package rows (readPackageRows) in their order: row i goes to element i, a row without a
// usable quantity leaves its element as it was, and every element after the last row becomes zero.
void loadPackageQuantities(PackageQuantities& quantities, const std::vector<std::optional<Currency>>& rows);

} // namespace tolvinpt
