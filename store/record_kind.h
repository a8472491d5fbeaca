#pragma once

#include <QString>
#include <QStringView>

#include <array>
#include <optional>

namespace tolvinpt {

class DeliveryRecord;

// The kind of a record, held in F00002; shown only as a caption.
enum class RecordKind {
    OrderInfo,
    DeliveryInstruction,
    DeliveryInfo1D,
    DeliveryInfo2E,
    DeliveryInfo2G,
    ManualInput
};

struct RecordKindEntry
{
    RecordKind kind;
    QStringView code; // F00002 as exact text
    QStringView caption;
};

// The kinds with a code, in the order in which codes are compared; every other value is ManualInput.
const std::array<RecordKindEntry, 5>& recordKindTable();

// Exact text comparison in table order; Null, empty or any other text is ManualInput.
RecordKind recordKindOf(const std::optional<QString>& f00002);
// Caption without brackets; an order awaiting its delivery instruction (F00030 exactly "2") has its own.
QString recordKindCaption(RecordKind kind, const std::optional<QString>& f00030);
// Both, from a record's F00002 and F00030.
QString recordKindCaption(const DeliveryRecord& record);

} // namespace tolvinpt
