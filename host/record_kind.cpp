#include "host/record_kind.h"

#include "store/record_kind.h"

#include <optional>

namespace tolvinpt::host {
namespace {

std::optional<QString> text(const QVariant& value)
{
    return value.isNull() ? std::nullopt : std::optional(value.toString());
}

} // namespace

// The captions are the component's own kind table, so the list and the entry form always agree.
QString kindCaption(const QVariant& kindCode, const QVariant& subState)
{
    return recordKindCaption(recordKindOf(text(kindCode)), text(subState));
}

QStringList kindCaptions()
{
    QStringList captions{recordKindCaption(RecordKind::OrderInfo, QStringLiteral("2"))};
    for (const RecordKindEntry& entry : recordKindTable())
        captions << recordKindCaption(entry.kind, std::nullopt);
    captions << recordKindCaption(RecordKind::ManualInput, std::nullopt);
    return captions;
}

} // namespace tolvinpt::host
