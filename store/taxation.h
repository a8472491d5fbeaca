#pragma once

#include <QString>
#include <QStringView>

#include <array>
#include <optional>

namespace tolvinpt {

// The taxation classes of F00059, in the order of the taxation list.
struct TaxationEntry
{
    QStringView code;      // stored in F00059
    QStringView listEntry; // the list shows this; its first character is the code
};
const std::array<TaxationEntry, 5>& taxationTable();

inline constexpr int TaxableIndex = 0;    // "1-課税"
inline constexpr int NonTaxableIndex = 1; // "2-非課税"

// List index for a stored F00059. A value that is none of the codes (Null, empty, other) falls back by the
// currency: "1-課税" when F00281 trims to empty text, "2-非課税" otherwise, and a Null F00281 counts as
// "otherwise" here, although a Null currency is yen everywhere else: kept on purpose.
int taxationIndex(const std::optional<QString>& f00059, const std::optional<QString>& f00281);

// The code written for a list entry: its first character.
QString taxationCodeOfEntry(const QString& listEntry);

// Yen rule for F00281: a record is in yen when its currency is Null or trims to empty text.
bool isYenCurrency(const std::optional<QString>& f00281);

} // namespace tolvinpt
