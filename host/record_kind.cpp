#include "host/record_kind.h"

namespace tolvinpt::host {
namespace {

struct KindRow
{
    const char16_t* code;     // null: any code
    const char16_t* subState; // null: any sub-state
    const char16_t* caption;
};

// First match wins.
const KindRow kKinds[] = {
    {u"0502", u"2", u"注文情報 納入指示待ち"},
    {u"0502", nullptr, u"注文情報"},
    {u"0703", nullptr, u"納入指示情報"},
    {u"9999", nullptr, u"納品情報(1D)"},
    {u"9990", nullptr, u"納品情報(2E)"},
    {u"999G", nullptr, u"納品情報(2G)"},
    {nullptr, nullptr, u"手入力"},
};

bool matches(const char16_t* expected, const QVariant& value)
{
    return !expected || (!value.isNull() && value.toString() == QString::fromUtf16(expected));
}

} // namespace

QString kindCaption(const QVariant& kindCode, const QVariant& subState)
{
    for (const KindRow& row : kKinds)
        if (matches(row.code, kindCode) && matches(row.subState, subState))
            return QString::fromUtf16(row.caption);
    return {};
}

QStringList kindCaptions()
{
    QStringList captions;
    for (const KindRow& row : kKinds)
        captions << QString::fromUtf16(row.caption);
    return captions;
}

} // namespace tolvinpt::host
