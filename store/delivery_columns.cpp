#include "store/delivery_columns.h"

namespace tolvinpt {

namespace {

using C = DeliveryColumn;
using T = ColumnType;
using W = Writer;

constexpr std::array<DeliveryColumnInfo, DeliveryColumnCount> catalogue{{
    {C::IDData, u"IDData", T::Key, W::Database},
    {C::IDCustomer, u"IDCustomer", T::Integer, W::DetailSave},
    {C::F00004, u"F00004", T::Text, W::DetailSave},
    {C::F00005, u"F00005", T::Text, W::DetailSave},
    {C::F00007, u"F00007", T::Text, W::DetailSave},
    {C::F00159, u"F00159", T::Text, W::DetailSave},
    {C::F00018, u"F00018", T::Text, W::DetailSave},
    {C::F00260, u"F00260", T::Text, W::DetailSave},
    {C::F00028, u"F00028", T::Text, W::DetailSave},
    {C::F00160, u"F00160", T::Text, W::DetailSave},
    {C::F00274, u"F00274", T::Text, W::DetailSave},
    {C::F00024, u"F00024", T::Text, W::DetailSave},
    {C::F00023, u"F00023", T::Text, W::DetailSave},
    {C::F00022, u"F00022", T::Text, W::DetailSave},
    {C::F00262, u"F00262", T::Text, W::DetailSave},
    {C::F00031, u"F00031", T::Date, W::DetailSave},
    {C::F00039, u"F00039", T::Date, W::DetailSave},
    {C::F00040, u"F00040", T::Date, W::DetailSave},
    {C::F00015, u"F00015", T::Double, W::DetailSave},
    {C::F00032, u"F00032", T::Double, W::DetailSave},
    {C::F00036, u"F00036", T::Double, W::DetailSave},
    {C::F00012, u"F00012", T::Text, W::DetailSave},
    {C::F00057, u"F00057", T::SmallInteger, W::DetailSave},
    {C::F00029, u"F00029", T::Text, W::DetailSave},
    {C::F00059, u"F00059", T::Text, W::DetailSave},
    {C::F00281, u"F00281", T::Text, W::DetailSave},
    {C::F00282, u"F00282", T::Decimal, W::DetailSave},
    {C::F00013, u"F00013", T::Decimal, W::DetailSave},
    {C::F00162, u"F00162", T::Text, W::DetailSave},
    {C::F00275, u"F00275", T::Text, W::DetailSave},
    {C::F00164, u"F00164", T::Text, W::DetailSave},
    {C::F00276, u"F00276", T::Text, W::DetailSave},
    {C::F00161, u"F00161", T::Text, W::DetailSave},
    {C::F00163, u"F00163", T::Text, W::DetailSave},
    {C::F00002, u"F00002", T::Text, W::None},
    {C::F00030, u"F00030", T::Text, W::None},
    {C::QuantityType, u"QuantityType", T::SmallInteger, W::PackageSave},
    {C::Quantity, u"Quantity", T::Currency, W::PackageSave},
    {C::InDustBox, u"InDustBox", T::Boolean, W::None},
    {C::DateDeliveryPrint, u"DateDeliveryPrint", T::DateTime, W::ClearedByDetail},
    {C::DateLabelPrint, u"DateLabelPrint", T::DateTime, W::ClearedByPackage},
}};

constexpr bool indexedByColumn()
{
    for (int i = 0; i < DeliveryColumnCount; ++i) {
        if (static_cast<int>(catalogue[i].column) != i)
            return false;
    }
    return true;
}
static_assert(indexedByColumn(), "the catalogue lists the columns in enum order");

} // namespace

const std::array<DeliveryColumnInfo, DeliveryColumnCount>& deliveryColumns()
{
    return catalogue;
}

const DeliveryColumnInfo& columnInfo(DeliveryColumn column)
{
    return catalogue[static_cast<std::size_t>(column)];
}

std::optional<DeliveryColumn> deliveryColumnNamed(QStringView name)
{
    for (const DeliveryColumnInfo& info : catalogue) {
        if (name.compare(info.name, Qt::CaseInsensitive) == 0)
            return info.column;
    }
    return std::nullopt;
}

} // namespace tolvinpt
