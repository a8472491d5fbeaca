#include "store/record_kind.h"

#include "store/delivery_record.h"

using namespace Qt::StringLiterals;

namespace tolvinpt {

namespace {

constexpr std::array<RecordKindEntry, 5> table{{
    {RecordKind::OrderInfo, u"0502", u"注文情報"},
    {RecordKind::DeliveryInstruction, u"0703", u"納入指示情報"},
    {RecordKind::DeliveryInfo1D, u"9999", u"納品情報(1D)"},
    {RecordKind::DeliveryInfo2E, u"9990", u"納品情報(2E)"},
    {RecordKind::DeliveryInfo2G, u"999G", u"納品情報(2G)"},
}};

constexpr QStringView manualInputCaption = u"手入力";
constexpr QStringView awaitingInstructionCaption = u"注文情報 納入指示待ち";

} // namespace

const std::array<RecordKindEntry, 5>& recordKindTable()
{
    return table;
}

RecordKind recordKindOf(const std::optional<QString>& f00002)
{
    if (f00002) {
        for (const RecordKindEntry& entry : table) {
            if (*f00002 == entry.code)
                return entry.kind;
        }
    }
    return RecordKind::ManualInput;
}

QString recordKindCaption(RecordKind kind, const std::optional<QString>& f00030)
{
    if (kind == RecordKind::OrderInfo && f00030 == u"2"_s)
        return awaitingInstructionCaption.toString();
    for (const RecordKindEntry& entry : table) {
        if (entry.kind == kind)
            return entry.caption.toString();
    }
    return manualInputCaption.toString();
}

QString recordKindCaption(const DeliveryRecord& record)
{
    const RecordKind kind = recordKindOf(record.text(DeliveryColumn::F00002));
    return recordKindCaption(kind, record.text(DeliveryColumn::F00030));
}

} // namespace tolvinpt
