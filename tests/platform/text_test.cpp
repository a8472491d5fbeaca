#include "platform/text.h"

#include <gtest/gtest.h>

#include <unicode/ucnv.h>

namespace tolvinpt {
namespace {

QString q(const char16_t* text)
{
    return QString::fromUtf16(text);
}

// Half-width one byte, full-width two; what the code page cannot hold (¥ U+00A5, 〜 U+301C, an emoji's
// surrogate pair, Hangul) one substitute byte. \ is byte 0x5C, shown as a yen sign by Japanese fonts.
TEST(Cp932ByteLength, CountsOneByteHalfWidthTwoFullWidthOneUnmappable)
{
    const std::pair<const char16_t*, int> rows[] = {
        {u"", 0},           {u"abc 123", 7}, {u"ｶﾞﾊﾟ", 4},   {u"ガ漢か", 6},  {u"\u3000", 2},
        {u"\\", 1},         {u"\u00A5", 1},  {u"\uFFE5", 2}, {u"~\uFF5E", 3}, {u"\u301C", 1},
        {u"\U0001F600", 1}, {u"\uAC00", 1},  {u"①", 2}};
    for (const auto& [text, bytes] : rows)
        EXPECT_EQ(cp932ByteLength(q(text)), bytes) << q(text).toStdString();
    EXPECT_EQ(rightTrim(q(u" a b \u3000  ")), q(u" a b \u3000")); // only U+0020 is trimmed
}

TEST(WidthConversion, FollowsTheCodePageCorrespondence)
{
    // text, toHalfWidth, toFullWidth; the code page has no ヷ ヺ and no voiced ア.
    const std::tuple<const char16_t*, const char16_t*, const char16_t*> rows[] = {
        {u"Ab1\u3000ｶﾞｰ", u"Ab1 ｶﾞｰ", u"Ａｂ１\u3000ガー"},
        {u"ガパヴ", u"ｶﾞﾊﾟｳﾞ", u"ガパヴ"},
        {u"ﾜﾞｦﾞｱﾞﾞﾟ", u"ﾜﾞｦﾞｱﾞﾞﾟ", u"ワ゛ヲ゛ア゛゛゜"},
        {u"、。「」・", u"､｡｢｣･", u"、。「」・"},
        {u"\\\u00A5\uFFE5\uFF3C", u"\\\u00A5\u00A5\\", u"\uFF3C\uFFE5\uFFE5\uFF3C"},
        {u"~\uFF5E\u301C-\uFF0D\u2212", u"~~~---", u"\uFF5E\uFF5E\uFF5E\uFF0D\uFF0D\uFF0D"},
        {u"\"'\uFF02\uFF07“”‘’", u"\"'\"'\"\"''", u"”’”’“”‘’"},
        {u"あ漢\U00020BB7\uAC00\U0001F600", u"あ漢\U00020BB7\uAC00\U0001F600",
         u"あ漢\U00020BB7\uAC00\U0001F600"}};
    for (const auto& [text, half, full] : rows) {
        EXPECT_EQ(toHalfWidth(q(text)), q(half)) << q(text).toStdString();
        EXPECT_EQ(toFullWidth(q(text)), q(full)) << q(text).toStdString();
    }
}

// Widening a single-byte character gives one two-byte character that narrows back to it.
TEST(WidthConversion, EverySingleByteCharacterRoundTrips)
{
    for (const auto& [first, last] : {std::pair<char16_t, char16_t>{0x20, 0x7E}, {0xFF61, 0xFF9F}}) {
        for (char16_t c = first; c <= last; ++c) {
            const QString single(QChar{c});
            const QString wide = toFullWidth(single);
            EXPECT_EQ(wide.size(), 1) << int(c);
            EXPECT_EQ(cp932ByteLength(wide), 2) << int(c);
            EXPECT_EQ(toHalfWidth(wide), single) << int(c);
            EXPECT_EQ(toHalfWidth(single), single) << int(c);
        }
    }
}

// Every double-byte character of the code page: widening keeps it double-byte, narrowing either
// keeps it or gives single-byte characters only.
TEST(WidthConversion, DoubleByteCharactersStayOrNarrowToSingleBytes)
{
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open("windows-31j", &status);
    ucnv_setToUCallBack(converter, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    ASSERT_TRUE(U_SUCCESS(status));
    int checked = 0;
    for (int code = 0x8140; code <= 0xFCFC; ++code) {
        const char bytes[2] = {char(code >> 8), char(code & 0xFF)};
        UChar unit[4];
        status = U_ZERO_ERROR;
        const int32_t n = ucnv_toUChars(converter, unit, 4, bytes, 2, &status);
        const QString c = n == 1 && U_SUCCESS(status) ? QString(QChar{unit[0]}) : QString();
        if (cp932ByteLength(c) != 2)
            continue; // not a character, or one that maps back to another code
        ++checked;
        const QString wide = toFullWidth(c), narrow = toHalfWidth(c);
        EXPECT_EQ(cp932ByteLength(wide), 2 * wide.size()) << code;
        EXPECT_TRUE(narrow == c || cp932ByteLength(narrow) == narrow.size()) << code;
    }
    ucnv_close(converter);
    EXPECT_GT(checked, 7000);
}

} // namespace
} // namespace tolvinpt
