#pragma once

#include <QStringView>

#include <array>
#include <optional>

namespace tolvinpt {

// How a delivery is packed (QuantityType); the value is stored.
enum class PackageMode { Single = 1, Equal = 2, Individual = 3 };

struct PackageModeEntry
{
    PackageMode mode;
    int optionIndex; // optQuantity(n)
    QStringView caption;
};
const std::array<PackageModeEntry, 3>& packageModeTable();
const PackageModeEntry& packageModeEntry(PackageMode mode);

// A stored QuantityType: 2 and 3 are themselves; anything else, Null included, is Single.
PackageMode packageModeFromStored(const std::optional<qint64>& quantityType);

} // namespace tolvinpt
