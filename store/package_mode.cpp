#include "store/package_mode.h"

namespace tolvinpt {

namespace {

constexpr std::array<PackageModeEntry, 3> table{{
    {PackageMode::Single, 1, u"単梱包"},
    {PackageMode::Equal, 2, u"均等割梱包"},
    {PackageMode::Individual, 3, u"個別指定"},
}};

} // namespace

const std::array<PackageModeEntry, 3>& packageModeTable()
{
    return table;
}

const PackageModeEntry& packageModeEntry(PackageMode mode)
{
    return table[static_cast<std::size_t>(mode) - 1];
}

PackageMode packageModeFromStored(const std::optional<qint64>& quantityType)
{
    if (quantityType == 2)
        return PackageMode::Equal;
    if (quantityType == 3)
        return PackageMode::Individual;
    return PackageMode::Single;
}

} // namespace tolvinpt
