#include "store/package_quantities.h"

#include <algorithm>

namespace tolvinpt {

PackageQuantities gPackageQty{};

int packageCount(const PackageQuantities& quantities)
{
    const auto end = std::find_if(quantities.begin(), quantities.end(), [](Currency c) { return c.isZero(); });
    return static_cast<int>(end - quantities.begin());
}

} // namespace tolvinpt
