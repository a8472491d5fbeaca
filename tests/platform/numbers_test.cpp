#include "platform/values/currency.h"
#include "platform/values/decimal.h"
#include "platform/values/number_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace tolvinpt {
namespace {

using namespace Qt::StringLiterals;

Decimal dec(const char16_t* text)
{
    return Decimal::fromString(QStringView(text)).value();
}

// Rows as text: what is read, and the value read or "none".
template <class Read>
void expectReadings(Read read, std::initializer_list<std::pair<const char16_t*, const char16_t*>> rows)
{
    for (const auto& [text, value] : rows) {
        const auto got = read(QString::fromUtf16(text));
        EXPECT_EQ(got ? got->toString() : u"none"_s, QString::fromUtf16(value))
            << QString::fromUtf16(text).toStdString();
    }
}

// 28 digits at most, before and after the point; trailing zeros are not digits of the value.
TEST(Decimal, FromStringIsExactOrNothing)
{
    // clang-format off
    expectReadings([](const QString& t) { return Decimal::fromString(t); },
        {{u"12.50", u"12.5"}, {u" -0.000 ", u"0"}, {u".5", u"0.5"}, {u"3.", u"3"}, {u"+7", u"7"},
         {u"-0.0000000000000000000000000001", u"-0.0000000000000000000000000001"},
         {u"1.0000000000000000000000000000000", u"1"}, {u"99999999999999999999999999999", u"none"},
         {u"0.00000000000000000000000000001", u"none"}, {u"12345678901234567890.123456789", u"none"},
         {u"", u"none"}, {u".", u"none"}, {u"-", u"none"}, {u"1.2.3", u"none"}, {u"1e3", u"none"},
         {u"1,000", u"none"}, {u"１２", u"none"}, {u"1 2", u"none"}});
    // clang-format on
}

TEST(Decimal, RoundsHalfToEven)
{
    // clang-format off
    const std::tuple<const char16_t*, int, const char16_t*> rows[] = {
        {u"2.0005", 3, u"2"}, {u"2.0015", 3, u"2.002"}, {u"2.00050001", 3, u"2.001"}, {u"-2.5", 0, u"-2"},
        {u"-3.5", 0, u"-4"}, {u"-0.0004", 3, u"0"}, {u"12.3456", 5, u"12.3456"},
        {u"99999999999.999995", 5, u"100000000000"}, {u"0.9999999999999999999999999999", 27, u"1"}};
    // clang-format on
    for (const auto& [text, decimals, rounded] : rows) {
        const QString expected = QString::fromUtf16(rounded);
        EXPECT_EQ(dec(text).roundHalfEven(decimals).toString(), expected) << decimals;
        EXPECT_EQ(Decimal::fromStringRounded(QStringView(text), decimals)->toString(), expected) << decimals;
    }
    // Rounding text reads every digit: a tie at the third decimal broken far beyond the 28th digit.
    EXPECT_EQ(Decimal::fromStringRounded(u"2.002500000000000000000000000000000001", 3)->toString(),
              u"2.003"_s);
    EXPECT_EQ(Decimal::fromStringRounded(u"2.002500000000000000000000000000000000", 3)->toString(),
              u"2.002"_s);
}

TEST(Decimal, OrdersByValueAndAddsToTwentyEightDigits)
{
    // clang-format off
    const char16_t* ascending[] = {u"-9999999999999999999999999999", u"-1", u"-0.0000000000000000000000000001",
                                   u"0", u"0.1", u"0.12", u"1", u"99999999999.99999", u"922337203685477.5807"};
    // clang-format on
    for (size_t i = 0; i + 1 < std::size(ascending); ++i)
        EXPECT_LT(dec(ascending[i]), dec(ascending[i + 1])) << i;

    EXPECT_EQ((dec(u"0.1") + dec(u"0.2")).toString(), u"0.3"_s);
    EXPECT_EQ((dec(u"1") - dec(u"1.0001")).toString(), u"-0.0001"_s);
    EXPECT_EQ((dec(u"1000000000000000000000000001") + dec(u"0.5")).toString(),
              u"1000000000000000000000000002"_s);
    EXPECT_EQ((dec(u"1000000000000000000000000000") + dec(u"0.5")).toString(),
              u"1000000000000000000000000000"_s);
    // Far apart scales: what lies beyond 36 digits still breaks the tie.
    EXPECT_EQ((dec(u"100000000000000000000000000") + dec(u"0.0500000000000000000000000001")).toString(),
              u"100000000000000000000000000.1"_s);
    EXPECT_EQ((dec(u"0.9999999999999999999999999999") * std::numeric_limits<std::int64_t>::max()).toString(),
              u"9223372036854775806.999999999"_s);
    EXPECT_THROW(Decimal::largest() + dec(u"0.5"), std::overflow_error);
    EXPECT_THROW(Decimal::largest() * 2, std::overflow_error);
    EXPECT_EQ((-Decimal::largest() - dec(u"0.4")), -Decimal::largest());
}

TEST(Decimal, DoublesAsTheirShortestText)
{
    // clang-format off
    const std::pair<double, const char16_t*> rows[] = {
        {0.1, u"0.1"}, {999999999.999, u"999999999.999"}, {99999999999.99999, u"99999999999.99998"}, {-0.0, u"0"},
        {123456789012345678.0, u"123456789012345680"}, {-2.5e-5, u"-0.000025"}};
    // clang-format on
    for (const auto& [value, text] : rows) {
        EXPECT_EQ(Decimal::fromDouble(value)->toString(), QString::fromUtf16(text)) << value;
        EXPECT_EQ(Decimal::fromDouble(value)->toDouble(), value);
    }
    EXPECT_TRUE(Decimal::fromDouble(1e-30)->isZero());
    EXPECT_FALSE(Decimal::fromDouble(1e29));
    EXPECT_FALSE(Decimal::fromDouble(std::numeric_limits<double>::quiet_NaN()));
}

TEST(Currency, ExactToTheLimitsOf64Bits)
{
    // clang-format off
    expectReadings([](const QString& t) { return Currency::fromString(t); },
        {{u"922337203685477.5807", u"922337203685477.5807"}, {u"-922337203685477.5808", u"-922337203685477.5808"},
         {u"922337203685477.58065", u"922337203685477.5806"}, {u"0.00015", u"0.0002"}, {u"0.00005", u"0"},
         {u"-1.23455", u"-1.2346"}, {u"922337203685477.5808", u"none"}, {u"922337203685477.58075", u"none"},
         {u"-922337203685477.5809", u"none"}, {u"abc", u"none"}});
    // clang-format on
    const Currency max = Currency::fromRaw(std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(Currency::fromDecimal(max.toDecimal()), max);
    EXPECT_EQ(Currency::fromDecimal(dec(u"99999999999.99999"))->toString(), u"100000000000"_s);
    EXPECT_THROW(max + Currency::fromRaw(1), std::overflow_error);
    EXPECT_EQ((Currency::fromInteger(25) - Currency::fromRaw(1)).toString(), u"24.9999"_s);
}

// Blanks are skipped anywhere; reading stops at the first other character.
TEST(LeadingNumber, ReadsTheLongestLeadingNumber)
{
    // clang-format off
    expectReadings([](const QString& t) { return std::optional(leadingNumber(t)); },
        {{u"12.5.3", u"12.5"}, {u"", u"0"}, {u"abc", u"0"}, {u" - 1\t2 . 5x", u"-12.5"}, {u"1e3", u"1"},
         {u"1,000", u"1"}, {u"１２", u"0"}, {u"+.5", u"0.5"}, {u".", u"0"}, {u"--5", u"0"}, {u"5-3", u"5"},
         {u"0012", u"12"}, {u"1\u30002", u"1"}, {u"1.00000000000000000000000000005", u"1"},
         {u"-123456789012345678901234567890", u"-9999999999999999999999999999"}});
    // clang-format on
}

TEST(StrictDecimal, AcceptsOnlyAWholeNumber)
{
    // clang-format off
    expectReadings(strictDecimal,
        {{u"  -12.50\t", u"-12.5"}, {u"1,234,567.5", u"1234567.5"}, {u"12,34", u"1234"}, {u"+.5", u"0.5"},
         {u"3.", u"3"}, {u"99999999999.99999", u"99999999999.99999"},
         {u"0.12345678901234567890123456785", u"0.1234567890123456789012345678"}, {u"1.2.3", u"none"},
         {u"  ", u"none"}, {u"-", u"none"}, {u".", u"none"}, {u"1e3", u"none"}, {u"１２", u"none"},
         {u"12a", u"none"}, {u"- 5", u"none"}, {u"1 2", u"none"}, {u",123", u"none"}, {u"123,", u"none"},
         {u"1,,2", u"none"}, {u"1.2,3", u"none"}, {u"1,.5", u"none"}, {u"\\12", u"none"}, {u"12-", u"none"},
         {u"1234567890123456789012345678901", u"none"}});
    // clang-format on
}

TEST(FormatNumber, RoundsAndDropsTrailingZeros)
{
    // clang-format off
    const std::tuple<const char16_t*, int, const char16_t*> rows[] = {
        {u"12.000", 3, u"12"}, {u"1234.5678", 3, u"1234.568"}, {u"2.0005", 3, u"2"}, {u"-0.0001", 3, u"0"},
        {u"0.5", 0, u"0"}, {u"99999999999.99999", 5, u"99999999999.99999"}, {u"999999999.9995", 3, u"1000000000"},
        {u"-0.0015", 3, u"-0.002"}};
    // clang-format on
    for (const auto& [value, decimals, shown] : rows)
        EXPECT_EQ(formatNumber(dec(value), decimals), QString::fromUtf16(shown)) << decimals;
}

TEST(FormatFixed, KeepsExactlyTheDecimals)
{
    const std::tuple<const char16_t*, int, const char16_t*> rows[] = {
        {u"0", 3, u"0.000"},       {u"12.5", 3, u"12.500"},   {u"2.0005", 3, u"2.000"},
        {u"1.23456", 3, u"1.235"}, {u"-0.0001", 3, u"0.000"}, {u"7", 0, u"7"}};
    for (const auto& [value, decimals, shown] : rows)
        EXPECT_EQ(formatFixed(dec(value), decimals), QString::fromUtf16(shown)) << decimals;
}

} // namespace
} // namespace tolvinpt
