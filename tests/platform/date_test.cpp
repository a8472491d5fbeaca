#include "platform/values/date.h"

#include <gtest/gtest.h>

namespace tolvinpt {
namespace {

TEST(Ymd, ReadsOnlyEightDigitsOfACalendarDay)
{
    // clang-format off
    const std::pair<const char16_t*, QDate> rows[] = {
        {u"20050307", QDate(2005, 3, 7)}, {u"20000229", QDate(2000, 2, 29)}, {u"20040229", QDate(2004, 2, 29)},
        {u"99991231", QDate(9999, 12, 31)}, {u"19000229", {}}, {u"20050229", {}}, {u"20050431", {}},
        {u"20051301", {}}, {u"20050001", {}}, {u"20050100", {}}, {u"00000101", {}}, {u"2005037", {}},
        {u"200503070", {}}, {u"2005-3-7", {}}, {u" 2005037", {}}, {u"２００５０３０７", {}}};
    // clang-format on
    for (const auto& [text, date] : rows) {
        EXPECT_EQ(fromYmd(QString::fromUtf16(text)).value_or(QDate()), date)
            << QString::fromUtf16(text).toStdString();
        EXPECT_EQ(toYmd(date), date.isValid() ? QString::fromUtf16(text) : QString());
    }
    EXPECT_EQ(toYmd(QDate(5, 1, 2)), QStringLiteral("00050102"));
}

} // namespace
} // namespace tolvinpt
