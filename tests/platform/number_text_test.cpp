#include "platform/number_text.h"

#include <gtest/gtest.h>

namespace tolvinpt {
namespace {

struct Reading
{
    const char16_t* text;
    const char16_t* value; // nullptr: no number
};

TEST(LeadingNumber, ReadsTheLongestLeadingNumber)
{
    const Reading rows[] = {
        {u"12.5.3", u"12.5"}, {u"", u"0"}, {u"abc", u"0"}, {u" 1 2", u"12"}, {u"-5", u"-5"},
        {u" - 1\t2 . 5x", u"-12.5"}, {u"1e3", u"1"}, {u"1,000", u"1"}, {u"１２", u"0"}, {u"+.5", u"0.5"},
        {u"5.", u"5"}, {u".", u"0"}, {u"--5", u"0"}, {u"5-3", u"5"}, {u"12.000", u"12"}, {u"0012", u"12"},
        {u"1\u30002", u"1"}, // the ideographic blank is not skipped
        {u"1.00000000000000000000000000005", u"1"},
        {u"-123456789012345678901234567890", u"-9999999999999999999999999999"},
    };
    for (const Reading& row : rows)
        EXPECT_EQ(leadingNumber(QString::fromUtf16(row.text)).toString(), QString::fromUtf16(row.value))
            << QString::fromUtf16(row.text).toStdString();
}

TEST(StrictDecimal, AcceptsOnlyAWholeNumber)
{
    const Reading rows[] = {
        {u"12.5", u"12.5"}, {u"  -12.50\t", u"-12.5"}, {u"1,234,567.5", u"1234567.5"}, {u"12,34", u"1234"},
        {u"+.5", u"0.5"}, {u"3.", u"3"}, {u"99999999999.99999", u"99999999999.99999"},
        {u"0.12345678901234567890123456785", u"0.1234567890123456789012345678"},
        {u"1.2.3", nullptr}, {u"", nullptr}, {u"  ", nullptr}, {u"-", nullptr}, {u".", nullptr},
        {u"1e3", nullptr}, {u"１２", nullptr}, {u"12a", nullptr}, {u"- 5", nullptr}, {u"1 2", nullptr},
        {u",123", nullptr}, {u"123,", nullptr}, {u"1,,2", nullptr}, {u"1.2,3", nullptr}, {u"1,.5", nullptr},
        {u"\\12", nullptr}, {u"12-", nullptr}, {u"1234567890123456789012345678901", nullptr},
    };
    for (const Reading& row : rows) {
        const auto value = strictDecimal(QString::fromUtf16(row.text));
        if (row.value)
            EXPECT_EQ(value.value_or(Decimal::fromInteger(-999)).toString(), QString::fromUtf16(row.value));
        else
            EXPECT_FALSE(value.has_value()) << QString::fromUtf16(row.text).toStdString();
    }
}

TEST(FormatNumber, RoundsAndDropsTrailingZeros)
{
    const struct
    {
        const char16_t* value;
        int decimals;
        const char16_t* shown;
    } rows[] = {
        {u"12", 3, u"12"}, {u"12.5", 3, u"12.5"}, {u"0", 3, u"0"}, {u"12.000", 3, u"12"},
        {u"1234.5678", 3, u"1234.568"}, {u"2.0005", 3, u"2"}, {u"2.0015", 3, u"2.002"}, {u"-0.0001", 3, u"0"},
        {u"0.5", 0, u"0"}, {u"12.3456", 5, u"12.3456"}, {u"99999999999.99999", 5, u"99999999999.99999"},
        {u"999999999.9995", 3, u"1000000000"}, {u"-0.0005", 3, u"0"}, {u"-0.0015", 3, u"-0.002"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(formatNumber(*Decimal::fromString(QStringView(row.value)), row.decimals), QString::fromUtf16(row.shown))
            << QString::fromUtf16(row.value).toStdString();
}

} // namespace
} // namespace tolvinpt
