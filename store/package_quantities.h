#pragma once

#include "platform/currency.h"

#include <array>

namespace tolvinpt {

constexpr int MaxPackages = 100;

// Per-package quantities of the record on screen: element 0 is package 1; the first zero ends the list.
using PackageQuantities = std::array<Currency, MaxPackages>;
extern PackageQuantities gPackageQty;

// Number of packages: the elements before the first zero.
int packageCount(const PackageQuantities& quantities);

} // namespace tolvinpt
