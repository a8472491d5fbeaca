#include "platform/currency.h"
#include "platform/decimal.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace tolvinpt {
namespace {

using namespace Qt::StringLiterals;

// The value of a literal that must parse; the tables below are written as text.
Decimal dec(const char16_t* text)
{
    const auto value = Decimal::fromString(QStringView(text));
    if (!value)
        throw std::invalid_argument("not a decimal literal");
    return *value;
}

struct Parse
{
    const char16_t* text;
    const char16_t* value; // nullptr: refused
};

TEST(Decimal, FromStringIsExactOrNothing)
{
    const Parse rows[] = {
        {u"12.50", u"12.5"}, {u" -0.000 ", u"0"}, {u".5", u"0.5"}, {u"3.", u"3"}, {u"+7", u"7"},
        {u"9999999999999999999999999999", u"9999999999999999999999999999"},
        {u"-0.0000000000000000000000000001", u"-0.0000000000000000000000000001"},
        {u"1.0000000000000000000000000000000", u"1"}, // trailing zeros are not digits of the value
        {u"99999999999.99999", u"99999999999.99999"},
        {u"99999999999999999999999999999", nullptr},     // 29 digits
        {u"0.00000000000000000000000000001", nullptr},   // 29 decimals
        {u"12345678901234567890.123456789", nullptr},    // 29 significant digits
        {u"", nullptr}, {u".", nullptr}, {u"-", nullptr}, {u"1.2.3", nullptr}, {u"1e3", nullptr},
        {u"1,000", nullptr}, {u"１２", nullptr}, {u"1 2", nullptr}, {u"--1", nullptr},
    };
    for (const Parse& row : rows) {
        const auto value = Decimal::fromString(QStringView(row.text));
        if (row.value)
            EXPECT_EQ(value.value_or(Decimal::fromInteger(-999)).toString(), QString::fromUtf16(row.value));
        else
            EXPECT_FALSE(value.has_value()) << QString::fromUtf16(row.text).toStdString();
    }
}

struct Rounding
{
    const char16_t* text;
    int decimals;
    const char16_t* rounded;
};

TEST(Decimal, RoundsHalfToEven)
{
    const Rounding rows[] = {
        {u"2.0005", 3, u"2"}, {u"2.0015", 3, u"2.002"}, {u"2.00150", 3, u"2.002"}, {u"2.00050001", 3, u"2.001"},
        {u"-2.5", 0, u"-2"}, {u"-3.5", 0, u"-4"}, {u"-0.0004", 3, u"0"}, {u"1234.5678", 3, u"1234.568"},
        {u"12.3456", 5, u"12.3456"}, {u"99999999999.999995", 5, u"100000000000"},
        {u"0.9999999999999999999999999999", 27, u"1"},
    };
    for (const Rounding& row : rows) {
        const QString text = QString::fromUtf16(row.text);
        EXPECT_EQ(dec(row.text).roundHalfEven(row.decimals).toString(), QString::fromUtf16(row.rounded)) << text.toStdString();
        EXPECT_EQ(Decimal::fromStringRounded(text, row.decimals)->toString(), QString::fromUtf16(row.rounded));
    }
    // Rounding text reads every digit: a tie at the third decimal broken far beyond the 28th digit.
    EXPECT_EQ(Decimal::fromStringRounded(u"2.002500000000000000000000000000000001", 3)->toString(), u"2.003"_s);
    EXPECT_EQ(Decimal::fromStringRounded(u"2.002500000000000000000000000000000000", 3)->toString(), u"2.002"_s);
}

TEST(Decimal, OrdersByValue)
{
    const char16_t* ascending[] = {
        u"-9999999999999999999999999999", u"-1", u"-0.0000000000000000000000000001", u"0",
        u"0.0000000000000000000000000001", u"0.1", u"0.12", u"1", u"99999999999.99999",
        u"922337203685477.5807", u"1000000000000000000000000000", u"9999999999999999999999999999",
    };
    for (size_t i = 0; i + 1 < std::size(ascending); ++i) {
        EXPECT_LT(dec(ascending[i]), dec(ascending[i + 1])) << i;
        EXPECT_EQ(dec(ascending[i]), dec(ascending[i]));
    }
    EXPECT_EQ(dec(u"1.50"), dec(u"1.5"));
    EXPECT_EQ(dec(u"-0"), Decimal());
}

TEST(Decimal, ArithmeticRoundsToTwentyEightDigits)
{
    EXPECT_EQ((dec(u"0.1") + dec(u"0.2")).toString(), u"0.3"_s);
    EXPECT_EQ((dec(u"1") - dec(u"1.0001")).toString(), u"-0.0001"_s);
    EXPECT_EQ((dec(u"99999999999.99999") - dec(u"99999999999.99998")).toString(), u"0.00001"_s);
    EXPECT_EQ((dec(u"1") + dec(u"0.0000000000000000000000000001")).toString(), u"1"_s);
    EXPECT_EQ((dec(u"1000000000000000000000000001") + dec(u"0.5")).toString(), u"1000000000000000000000000002"_s);
    EXPECT_EQ((dec(u"1000000000000000000000000000") + dec(u"0.5")).toString(), u"1000000000000000000000000000"_s);
    // Far apart scales: what lies beyond 36 digits still breaks the tie.
    EXPECT_EQ((dec(u"100000000000000000000000000") + dec(u"0.0500000000000000000000000001")).toString(),
              u"100000000000000000000000000.1"_s);
    EXPECT_EQ((dec(u"1.5") * 3).toString(), u"4.5"_s);
    EXPECT_EQ((dec(u"0.0001") * -7).toString(), u"-0.0007"_s);
    EXPECT_EQ((dec(u"0.9999999999999999999999999999") * std::numeric_limits<std::int64_t>::max()).toString(),
              u"9223372036854775806.999999999"_s);
    EXPECT_THROW(Decimal::largest() + dec(u"0.5"), std::overflow_error);
    EXPECT_THROW(Decimal::largest() * 2, std::overflow_error);
    EXPECT_EQ((-Decimal::largest() - dec(u"0.4")), -Decimal::largest());
}

TEST(Decimal, DoublesAsTheirShortestText)
{
    const std::pair<double, const char16_t*> rows[] = {
        {0.1, u"0.1"}, {1234.5678, u"1234.5678"}, {999999999.999, u"999999999.999"},
        {99999999999.99999, u"99999999999.99998"}, // the nearest double is the shorter text
        {-0.0, u"0"}, {1e-30, u"0"}, {1e27, u"1000000000000000000000000000"},
        {123456789012345678.0, u"123456789012345680"}, {-2.5e-5, u"-0.000025"},
    };
    for (const auto& [value, text] : rows) {
        EXPECT_EQ(Decimal::fromDouble(value)->toString(), QString::fromUtf16(text)) << value;
        EXPECT_EQ(Decimal::fromDouble(value)->toDouble(), value == 1e-30 ? 0.0 : value);
    }
    EXPECT_FALSE(Decimal::fromDouble(1e29));
    EXPECT_FALSE(Decimal::fromDouble(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_FALSE(Decimal::fromDouble(std::numeric_limits<double>::infinity()));
}

TEST(Currency, ExactToTheLimitsOf64Bits)
{
    const Parse rows[] = {
        {u"922337203685477.5807", u"922337203685477.5807"}, {u"-922337203685477.5808", u"-922337203685477.5808"},
        {u"922337203685477.58065", u"922337203685477.5806"}, {u"0.00015", u"0.0002"}, {u"0.00005", u"0"},
        {u"-1.23455", u"-1.2346"}, {u"1500.0000", u"1500"},
        {u"922337203685477.5808", nullptr}, {u"922337203685477.58075", nullptr}, {u"-922337203685477.5809", nullptr},
        {u"abc", nullptr}, {u"", nullptr},
    };
    for (const Parse& row : rows) {
        const auto value = Currency::fromString(QString::fromUtf16(row.text));
        if (row.value)
            EXPECT_EQ(value.value_or(Currency::fromInteger(-999)).toString(), QString::fromUtf16(row.value));
        else
            EXPECT_FALSE(value.has_value()) << QString::fromUtf16(row.text).toStdString();
    }
    const Currency max = Currency::fromRaw(std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(Currency::fromDecimal(max.toDecimal()), max);
    EXPECT_EQ(Currency::fromDecimal(dec(u"99999999999.99999"))->toString(), u"100000000000"_s);
    EXPECT_THROW(max + Currency::fromRaw(1), std::overflow_error);
    EXPECT_EQ((Currency::fromInteger(25) - Currency::fromRaw(1)).toString(), u"24.9999"_s);
}

} // namespace
} // namespace tolvinpt
