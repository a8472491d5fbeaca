// Record kinds, taxation, package modes and per-column conversions of a record.
#include "store/delivery_record.h"
#include "store/package_mode.h"
#include "store/package_quantities.h"
#include "store/record_kind.h"
#include "store/taxation.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace tolvinpt;
using C = tolvinpt::DeliveryColumn;

namespace {

const std::optional<QString> null = std::nullopt;

std::optional<QString> t(const char16_t* text)
{
    return QString::fromUtf16(text);
}

TEST(RecordKind, CaptionsByExactCodeInTableOrder)
{
    const std::tuple<std::optional<QString>, std::optional<QString>, QString> cases[] = {
        {t(u"0502"), t(u"2"), u"注文情報 納入指示待ち"_s}, {t(u"0502"), null, u"注文情報"_s},
        {t(u"0502"), t(u"2 "), u"注文情報"_s}, {t(u"0703"), t(u"2"), u"納入指示情報"_s},
        {t(u"9999"), null, u"納品情報(1D)"_s}, {t(u"9990"), null, u"納品情報(2E)"_s},
        {t(u"999G"), null, u"納品情報(2G)"_s}, {t(u"999g"), null, u"手入力"_s}, {t(u"0502 "), null, u"手入力"_s},
        {t(u""), null, u"手入力"_s}, {null, t(u"2"), u"手入力"_s}};
    for (const auto& [f00002, f00030, caption] : cases) {
        DeliveryRecord record;
        record.set(C::F00002, f00002 ? QVariant(*f00002) : QVariant());
        record.set(C::F00030, f00030 ? QVariant(*f00030) : QVariant());
        EXPECT_EQ(recordKindCaption(record), caption) << f00002.value_or(u"(Null)"_s).toStdString();
    }
}

// A stored code, or the fall-back: blank currency gives 1-課税, a currency or Null gives 2-非課税.
TEST(Taxation, StoredCodeOrFallBackByCurrency)
{
    const std::tuple<std::optional<QString>, std::optional<QString>, int> cases[] = {
        {t(u"1"), t(u"USD"), 0}, {t(u"2"), t(u""), 1}, {t(u"3"), null, 2}, {t(u"4"), t(u""), 3}, {t(u"9"), t(u""), 4},
        {null, t(u"USD"), 1}, {null, t(u""), 0}, {null, t(u"   "), 0}, {null, null, 1}, {t(u"5"), t(u""), 0},
        {t(u" 1"), t(u"EUR"), 1}, {t(u""), null, 1}};
    for (const auto& [f00059, f00281, index] : cases) {
        EXPECT_EQ(taxationIndex(f00059, f00281), index)
            << f00059.value_or(u"(Null)"_s).toStdString() << " / " << f00281.value_or(u"(Null)"_s).toStdString();
    }
    EXPECT_EQ(taxationCodeOfEntry(taxationTable()[4].listEntry.toString()), u"9"_s);
    // Yen when the currency is Null or blank; a stored "JPY" is a foreign code like any other.
    for (const auto& [currency, yen] : {std::pair{null, true}, {t(u"   "), true}, {t(u"JPY"), false}})
        EXPECT_EQ(isYenCurrency(currency), yen) << currency.value_or(u"(Null)"_s).toStdString();
}

TEST(PackageMode, AnythingButTwoOrThreeReadsAsSingle)
{
    const std::pair<std::optional<qint64>, PackageMode> cases[] = {
        {1, PackageMode::Single}, {2, PackageMode::Equal},  {3, PackageMode::Individual},
        {0, PackageMode::Single}, {4, PackageMode::Single}, {std::nullopt, PackageMode::Single},
    };
    for (const auto& [stored, mode] : cases)
        EXPECT_EQ(packageModeFromStored(stored), mode);
}

TEST(DeliveryRecord, EachColumnConvertsOnItsOwn)
{
    DeliveryRecord record;
    record.set(C::F00031, u"2005-02-30"_s); // not a date
    record.set(C::F00039, u"2005-03-07"_s);
    record.set(C::F00057, qint64(70000)); // out of 16 bits
    record.set(C::QuantityType, u"x"_s);  // not a number
    record.set(C::F00282, u"1.2.3"_s);    // not a decimal
    record.set(C::F00013, 1500.0);        // a double where text was expected
    record.set(C::F00015, u"1500"_s);
    record.set(C::F00007, qint64(1234)); // a number in a text column
    record.setNull(C::F00159);

    EXPECT_FALSE(record.date(C::F00031));
    EXPECT_FALSE(record.isNull(C::F00031));
    EXPECT_EQ(record.date(C::F00039), QDate(2005, 3, 7));
    EXPECT_FALSE(record.smallInteger(C::F00057));
    EXPECT_EQ(record.integer(C::F00057), 70000);
    EXPECT_FALSE(record.smallInteger(C::QuantityType));
    EXPECT_FALSE(record.decimal(C::F00282));
    EXPECT_EQ(record.decimal(C::F00013), u"1500"_s);
    EXPECT_EQ(record.number(C::F00015), 1500.0);
    EXPECT_EQ(record.text(C::F00007), u"1234"_s);
    EXPECT_TRUE(record.isNull(C::F00159));
    EXPECT_FALSE(record.text(C::F00159));
    // A column the row did not have is neither Null nor a value.
    EXPECT_FALSE(record.has(C::F00162));
    EXPECT_FALSE(record.isNull(C::F00162));
    EXPECT_FALSE(record.text(C::F00162));
}

// Loading keeps the element where a row is bad and zeroes the rest; rows stop at the first zero.
TEST(PackageQuantities, LoadAndRowsOfTheArray)
{
    PackageQuantities quantities;
    quantities.fill(Currency::fromInteger(7));
    loadPackageQuantities(quantities, {Currency::fromInteger(10), std::nullopt, Currency::fromInteger(5)});
    EXPECT_EQ(quantities[1], Currency::fromInteger(7));
    EXPECT_EQ(packageCount(quantities), 3);
    EXPECT_TRUE(quantities[99].isZero());
    quantities[1] = Currency();
    EXPECT_EQ(packageRowsOf(4, quantities),
              (std::vector<PackageQuantity>{{4, 1, Currency::fromInteger(10)}}));
    quantities.fill(Currency::fromRaw(1));
    const auto rows = packageRowsOf(4, quantities);
    ASSERT_EQ(rows.size(), std::size_t(MaxPackages));
    EXPECT_EQ(rows.back().sequence, MaxPackages);
}

} // namespace
