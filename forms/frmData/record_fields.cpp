#include "forms/frmData/record_fields.h"

#include "forms/assign_text.h"
#include "forms/frmData/frmData.h"
#include "platform/sql/database.h"
#include "platform/values/decimal.h"
#include "store/delivery_record.h"

#include <QCheckBox>
#include <QLineEdit>

namespace tolvinpt {
namespace {

using C = DeliveryColumn;

constexpr FieldColumn OrderTexts[] = {
    {u"txtIDData", C::IDData},  {u"txtCustomCode", C::F00004},   {u"txtMyCode", C::F00005},
    {u"txtOrderNo", C::F00007}, {u"txtPaymentKeyNo", C::F00159}, {u"txtTantoA", C::F00018},
    {u"txtTantoK", C::F00260},  {u"txtPlaceC", C::F00028},       {u"txtPlaceA", C::F00160},
    {u"txtPlaceK", C::F00274},  {u"txtHCode", C::F00024},        {u"txtMyHCode", C::F00023},
    {u"txtHinmeiA", C::F00022}, {u"txtHinmeiK", C::F00262},
};
constexpr FieldColumn Dates[] = {
    {u"txtDate(0)", C::F00031}, {u"txtDate(1)", C::F00039}, {u"txtDate(2)", C::F00040}};
constexpr FieldColumn Quantities[] = {
    {u"txtAmountOrder", C::F00015}, {u"txtAmountIndicate", C::F00032}, {u"txtAmountDelivery", C::F00036}};
constexpr FieldColumn UnitAndInspection[] = {{u"txtUnit", C::F00012}, {u"txtKensa", C::F00029}};
constexpr FieldColumn Remarks[] = {
    {u"txtCustomRemarksA", C::F00162}, {u"txtCustomRemarksK", C::F00275}, {u"txtMyRemarksA", C::F00164},
    {u"txtMyRemarksK", C::F00276},     {u"txtCustomBar", C::F00161},      {u"txtMyBar", C::F00163},
};

} // namespace

namespace fields {
std::span<const FieldColumn> orderTexts()
{
    return OrderTexts;
}
std::span<const FieldColumn> dates()
{
    return Dates;
}
std::span<const FieldColumn> quantities()
{
    return Quantities;
}
std::span<const FieldColumn> unitAndInspection()
{
    return UnitAndInspection;
}
std::span<const FieldColumn> remarks()
{
    return Remarks;
}
} // namespace fields

void step(const std::function<void()>& statement)
{
    try {
        statement();
    } catch (const std::bad_optional_access&) {
    } catch (const db::DatabaseError&) {
    }
}

void fill(const frmData& form, QStringView field, const std::optional<QString>& text)
{
    if (text)
        assignText(form.control<QLineEdit>(field.toString()), *text);
}

void fillTexts(const frmData& form, const DeliveryRecord& record, std::span<const FieldColumn> fields)
{
    for (const auto& f : fields)
        step([&] { fill(form, f.field, record.text(f.column)); });
}

std::optional<QString> plainNumber(const DeliveryRecord& record, DeliveryColumn column)
{
    const auto value = record.number(column);
    if (!value)
        return std::nullopt;
    const auto decimal = Decimal::fromDouble(*value);
    return decimal ? std::optional(decimal->toString()) : std::nullopt;
}

void fillNumbers(const frmData& form, const DeliveryRecord& record, std::span<const FieldColumn> fields)
{
    for (const auto& f : fields)
        step([&] { fill(form, f.field, plainNumber(record, f.column)); });
}

void fillTaxIncluded(const frmData& form, const DeliveryRecord& record)
{
    step([&] {
        form.control<QCheckBox>(QStringLiteral("chkTaxType"))->setChecked(record.integer(C::F00057) == 1);
    });
}

} // namespace tolvinpt
