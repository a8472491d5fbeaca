#include "platform/date.h"

#include <gtest/gtest.h>

namespace tolvinpt {
namespace {

TEST(Ymd, ReadsOnlyEightDigitsOfACalendarDay)
{
    const std::pair<const char16_t*, QDate> rows[] = {
        {u"20050307", QDate(2005, 3, 7)}, {u"20000229", QDate(2000, 2, 29)}, {u"20040229", QDate(2004, 2, 29)},
        {u"19510101", QDate(1951, 1, 1)}, {u"99991231", QDate(9999, 12, 31)},
        {u"19000229", QDate()}, {u"20050229", QDate()}, {u"20050230", QDate()}, {u"20051301", QDate()},
        {u"20050001", QDate()}, {u"20050100", QDate()}, {u"20050431", QDate()}, {u"00000101", QDate()},
        {u"2005037", QDate()}, {u"200503070", QDate()}, {u"050307", QDate()}, {u"", QDate()},
        {u"2005-3-7", QDate()}, {u" 2005037", QDate()}, {u"２００５０３０７", QDate()},
    };
    for (const auto& [text, date] : rows) {
        const auto read = fromYmd(QString::fromUtf16(text));
        EXPECT_EQ(read.value_or(QDate()), date) << QString::fromUtf16(text).toStdString();
        if (date.isValid()) {
            EXPECT_EQ(toYmd(date), QString::fromUtf16(text));
        }
    }
    EXPECT_EQ(toYmd(QDate(5, 1, 2)), QStringLiteral("00050102"));
    EXPECT_EQ(toYmd(QDate()), QString());
}

TEST(Ymd, SixDigitYearsFallInTheAcceptedRange)
{
    const std::pair<int, int> rows[] = {{0, 2000}, {5, 2005}, {50, 2050}, {51, 1951}, {99, 1999}};
    for (const auto& [yy, year] : rows) {
        EXPECT_EQ(expandTwoDigitYear(yy), year);
        EXPECT_TRUE(isAcceptedDate(QDate(year, 1, 1)));
        EXPECT_TRUE(isAcceptedDate(QDate(year, 12, 31)));
    }
    EXPECT_FALSE(isAcceptedDate(QDate(1950, 12, 31)));
    EXPECT_FALSE(isAcceptedDate(QDate(2051, 1, 1)));
    EXPECT_FALSE(isAcceptedDate(QDate()));
}

} // namespace
} // namespace tolvinpt
