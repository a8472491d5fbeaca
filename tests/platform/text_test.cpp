#include "platform/text.h"

#include <gtest/gtest.h>

#include <unicode/ucnv.h>

namespace tolvinpt {
namespace {

struct Width
{
    const char16_t* text;
    int bytes;
};

TEST(Cp932ByteLength, CountsOneByteHalfWidthTwoFullWidthOneUnmappable)
{
    const Width rows[] = {
        {u"", 0}, {u"abc 123", 7}, {u"ｶﾞﾊﾟ", 4}, {u"ガパ", 4}, {u"漢字かな", 8},
        {u"\u3000", 2},       // ideographic blank
        {u"\\", 1},           // byte 0x5C, shown as a yen sign by Japanese fonts
        {u"\u00A5", 1},       // ¥ is not in the code page: one substitute byte
        {u"\uFFE5", 2},       // ￥
        {u"~\uFF5E", 3},      // ~ and ～
        {u"\u301C", 1},       // 〜 is held as ～ only
        {u"\U0001F600", 1},   // emoji: one substitute byte for the surrogate pair
        {u"\U00020BB7", 1},   // 𠮷 is outside the code page
        {u"\uAC00", 1},       // Hangul syllable
        {u"①", 2},            // vendor addition of the code page
    };
    for (const Width& row : rows)
        EXPECT_EQ(cp932ByteLength(QString::fromUtf16(row.text)), row.bytes) << QString::fromUtf16(row.text).toStdString();
}

struct Conversion
{
    const char16_t* text;
    const char16_t* half;
    const char16_t* full;
};

TEST(WidthConversion, FollowsTheCodePageCorrespondence)
{
    const Conversion rows[] = {
        {u"Ab1 ｶﾞｰ", u"Ab1 ｶﾞｰ", u"Ａｂ１\u3000ガー"},
        {u"ガパヴ", u"ｶﾞﾊﾟｳﾞ", u"ガパヴ"},
        {u"ﾜﾞｦﾞｱﾞ", u"ﾜﾞｦﾞｱﾞ", u"ワ゛ヲ゛ア゛"}, // the code page has no ヷ ヺ and no voiced ア
        {u"ﾞﾟ", u"ﾞﾟ", u"゛゜"},
        {u"、。「」・", u"､｡｢｣･", u"、。「」・"},
        {u"\\\u00A5\uFFE5\uFF3C", u"\\\u00A5\u00A5\\", u"\uFF3C\uFFE5\uFFE5\uFF3C"},
        {u"~\uFF5E\u301C", u"~~~", u"\uFF5E\uFF5E\uFF5E"},
        {u"\"'\uFF02\uFF07“”‘’", u"\"'\"'\"\"''", u"”’”’“”‘’"},
        {u"-\uFF0D\u2212", u"---", u"\uFF0D\uFF0D\uFF0D"},
        {u"あ漢字\U00020BB7\uAC00", u"あ漢字\U00020BB7\uAC00", u"あ漢字\U00020BB7\uAC00"},
        {u"\u3000x\u3000", u" x ", u"\u3000ｘ\u3000"},
    };
    for (const Conversion& row : rows) {
        const QString text = QString::fromUtf16(row.text);
        EXPECT_EQ(toHalfWidth(text), QString::fromUtf16(row.half)) << text.toStdString();
        EXPECT_EQ(toFullWidth(text), QString::fromUtf16(row.full)) << text.toStdString();
    }
}

// Widening a single-byte character gives one two-byte character that narrows back to it.
void expectWidensAndNarrowsBack(char16_t c)
{
    const QString single(QChar{c});
    const QString wide = toFullWidth(single);
    EXPECT_EQ(wide.size(), 1) << int(c);
    EXPECT_EQ(cp932ByteLength(wide), 2) << int(c);
    EXPECT_EQ(toHalfWidth(wide), single) << int(c);
    EXPECT_EQ(toHalfWidth(single), single) << int(c);
}

TEST(WidthConversion, EverySingleByteCharacterRoundTrips)
{
    for (char16_t c = 0x20; c <= 0x7E; ++c)
        expectWidensAndNarrowsBack(c);
    for (char16_t c = 0xFF61; c <= 0xFF9F; ++c)
        expectWidensAndNarrowsBack(c);
}

// Every double-byte character of the code page: widening keeps it double-byte, narrowing either
// keeps it or gives single-byte characters only.
TEST(WidthConversion, DoubleByteCharactersStayOrNarrowToSingleBytes)
{
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open("windows-31j", &status);
    ASSERT_TRUE(U_SUCCESS(status));
    int checked = 0;
    for (int lead = 0x81; lead <= 0xFC; ++lead) {
        for (int trail = 0x40; trail <= 0xFC; ++trail) {
            const char bytes[2] = {char(lead), char(trail)};
            UChar unit[4];
            status = U_ZERO_ERROR;
            ucnv_setToUCallBack(converter, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
            const int32_t n = ucnv_toUChars(converter, unit, 4, bytes, 2, &status);
            if (U_FAILURE(status) || n != 1)
                continue;
            const QString c(QChar{unit[0]});
            if (cp932ByteLength(c) != 2)
                continue; // decodes, but to a code point that maps back elsewhere
            ++checked;
            const QString wide = toFullWidth(c);
            EXPECT_EQ(cp932ByteLength(wide), 2 * wide.size()) << lead << ' ' << trail;
            const QString narrow = toHalfWidth(c);
            if (narrow != c) {
                EXPECT_EQ(cp932ByteLength(narrow), narrow.size()) << lead << ' ' << trail;
            }
        }
    }
    ucnv_close(converter);
    EXPECT_GT(checked, 7000);
}

TEST(RightTrim, RemovesTrailingBlanksOnly)
{
    const std::pair<const char16_t*, const char16_t*> rows[] = {
        {u"", u""}, {u"   ", u""}, {u"  a b  ", u"  a b"}, {u"a\u3000", u"a\u3000"}, {u"a\t", u"a\t"},
    };
    for (const auto& [text, trimmed] : rows)
        EXPECT_EQ(rightTrim(QString::fromUtf16(text)), QString::fromUtf16(trimmed));
}

} // namespace
} // namespace tolvinpt
