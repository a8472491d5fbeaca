#include "store/package_quantities.h"

#include <algorithm>

namespace tolvinpt {

PackageQuantities gPackageQty{};

int packageCount(const PackageQuantities& quantities)
{
    const auto end =
        std::find_if(quantities.begin(), quantities.end(), [](Currency c) { return c.isZero(); });
    return static_cast<int>(end - quantities.begin());
}

void loadPackageQuantities(PackageQuantities& quantities, const std::vector<std::optional<Currency>>& rows)
{
    const std::size_t count = std::min(rows.size(), quantities.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (rows[i])
            quantities[i] = *rows[i];
    }
    std::fill(quantities.begin() + static_cast<std::ptrdiff_t>(count), quantities.end(), Currency());
}

std::vector<PackageQuantity> packageRowsOf(qint64 id, const PackageQuantities& quantities)
{
    std::vector<PackageQuantity> rows;
    const int count = packageCount(quantities);
    rows.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        rows.push_back({id, i + 1, quantities[static_cast<std::size_t>(i)]});
    return rows;
}

} // namespace tolvinpt
