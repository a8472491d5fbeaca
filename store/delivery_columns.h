#pragma once

#include <QString>
#include <QStringView>

#include <array>
#include <optional>

namespace tolvinpt {

// The columns of T_Delivery that the component reads or writes, in the order in which the record
// display reads them. IDData is the table's first column.
enum class DeliveryColumn {
    IDData,
    IDCustomer,
    F00004,
    F00005,
    F00007,
    F00159,
    F00018,
    F00260,
    F00028,
    F00160,
    F00274,
    F00024,
    F00023,
    F00022,
    F00262,
    F00031,
    F00039,
    F00040,
    F00015,
    F00032,
    F00036,
    F00012,
    F00057,
    F00029,
    F00059,
    F00281,
    F00282,
    F00013,
    F00162,
    F00275,
    F00164,
    F00276,
    F00161,
    F00163,
    F00002,
    F00030,
    QuantityType,
    Quantity,
    InDustBox,
    DateDeliveryPrint,
    DateLabelPrint,
};
inline constexpr int DeliveryColumnCount = static_cast<int>(DeliveryColumn::DateLabelPrint) + 1;

// The kind of value a column holds, which decides how it is stored and read back.
enum class ColumnType {
    Key,          // 64-bit integer numbered by the database
    Integer,      // whole number
    SmallInteger, // whole number of 16 bits
    Text,
    Date, // date without time
    DateTime,
    Double,   // quantities, written as double-precision values
    Decimal,  // exact decimal, kept as decimal text
    Currency, // fixed point with four decimals
    Boolean,
};

// Who writes a column.
enum class Writer {
    None,             // read only (the kind, the order sub-state, the waste-box flag)
    DetailSave,       // the detail save writes it from its field
    PackageSave,      // written with the package mode
    ClearedByDetail,  // set to Null by every detail save (and by a split)
    ClearedByPackage, // set to Null whenever the package data is written (and by a split)
    Database,         // assigned on insert
};

struct DeliveryColumnInfo
{
    DeliveryColumn column;
    QStringView name;
    ColumnType type;
    Writer writer;
};

// The catalogue, indexed by DeliveryColumn.
const std::array<DeliveryColumnInfo, DeliveryColumnCount>& deliveryColumns();
const DeliveryColumnInfo& columnInfo(DeliveryColumn column);
inline QString columnName(DeliveryColumn column)
{
    return columnInfo(column).name.toString();
}
// The column of that name, ignoring letter case as SQL does; nullopt for a column we do not use.
std::optional<DeliveryColumn> deliveryColumnNamed(QStringView name);

} // namespace tolvinpt
