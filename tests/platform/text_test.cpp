#include "platform/values/text.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <string>

namespace tolvinpt {
namespace {

QString q(const char16_t* text)
{
    return QString::fromUtf16(text);
}

// How code page 932 holds each BMP code point: 1 or 2 bytes, 0 when it does not (one substitute byte).
// Read from the statement that Python's cp932 codec wrote (cp932_widths.py), not from ICU.
using Held = std::array<unsigned char, 0x10000>;

const Held& heldByCodePage()
{
    static const Held held = [] {
        Held h{};
        std::ifstream file(CP932_WIDTHS_FILE);
        EXPECT_TRUE(file) << CP932_WIDTHS_FILE;
        unsigned char bytes = 0;
        for (std::string word; file >> word;) {
            unsigned first = 0, last = 0;
            if (word == "#")
                std::getline(file, word);
            else if (word == "single" || word == "double")
                bytes = word == "single" ? 1 : 2;
            else if (std::sscanf(word.c_str(), "%x-%x", &first, &last) == 1)
                h[first] = bytes;
            else
                std::fill(&h[first], &h[last] + 1, bytes);
        }
        return h;
    }();
    return held;
}

bool isSurrogate(unsigned c)
{
    return c >= 0xD800 && c <= 0xDFFF;
}

// True when every character of `text` is held by the code page with `bytes` bytes.
bool allHeldAs(const QString& text, int bytes)
{
    return std::all_of(text.begin(), text.end(),
                       [bytes](QChar c) { return heldByCodePage()[c.unicode()] == bytes; });
}

TEST(Cp932ByteLength, AgreesWithAnIndependentCodePageOnEveryBmpCharacter)
{
    int compared = 0, twoBytes = 0;
    for (unsigned c = 0; c <= 0xFFFF; ++c) {
        if (isSurrogate(c))
            continue;
        const int expected = heldByCodePage()[c] == 2 ? 2 : 1;
        EXPECT_EQ(cp932ByteLength(QString(QChar(char16_t(c)))), expected) << std::hex << c;
        ++compared;
        twoBytes += expected == 2;
    }
    EXPECT_EQ(compared, 63488);
    EXPECT_GT(twoBytes, 9000) << "the statement was read";
    // Whole texts: an emoji's surrogate pair is one substitute byte; an invisible character one too.
    const std::pair<const char16_t*, int> rows[] = {
        {u"", 0}, {u"abc 123", 7}, {u"ｶﾞﾊﾟ", 4}, {u"ガ漢か\u3000", 8}, {u"A\U0001F600", 2}, {u"a\u200Fb", 3}};
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
        {u"ヷヺ゛゜", u"ﾜﾞｦﾞﾞﾟ", u"ワ゛ヲ゛゛゜"},
        {u"、。「」・", u"､｡｢｣･", u"、。「」・"},
        {u"\\\u00A5\uFFE5\uFF3C", u"\\\u00A5\u00A5\\", u"\uFF3C\uFFE5\uFFE5\uFF3C"},
        {u"\"'\uFF02\uFF07“”‘’", u"\"'\"'\"\"''", u"”’\uFF02\uFF07“”‘’"}, // ＂＇ are full-width already
        // Held by the code page under another code point: 〜 is ～, − is －, ‖ is ∥, ¢ £ ¬ are ￠ ￡ ￢.
        {u"~\uFF5E\u301C-\uFF0D\u2212", u"~~~---", u"\uFF5E\uFF5E\uFF5E\uFF0D\uFF0D\uFF0D"},
        {u"\u2016\u2225\u00A2\u00A3\u00AC", u"\u2016\u2225\u00A2\u00A3\u00AC",
         u"\u2225\u2225\uFFE0\uFFE1\uFFE2"},
        // Not held, but widened to the code page's dash and macron.
        {u"\u2014\u2015\u203E\uFFE3", u"\u2014\u2015\u203E\uFFE3", u"\u2015\u2015\uFFE3\uFFE3"},
        // Full-width only in the code page: their Unicode half-width forms are not in it.
        {u"\uFFE0\uFFE1\uFFE2\uFFE4←↑→↓│■○", u"\uFFE0\uFFE1\uFFE2\uFFE4←↑→↓│■○",
         u"\uFFE0\uFFE1\uFFE2\uFFE4←↑→↓│■○"},
        {u"あ漢\U00020BB7\uAC00\U0001F600", u"あ漢\U00020BB7\uAC00\U0001F600",
         u"あ漢\U00020BB7\uAC00\U0001F600"}};
    for (const auto& [text, half, full] : rows) {
        EXPECT_EQ(toHalfWidth(q(text)), q(half)) << q(text).toStdString();
        EXPECT_EQ(toFullWidth(q(text)), q(full)) << q(text).toStdString();
    }
}

// ASCII and half-width katakana widen to one double-byte character that narrows back.
TEST(WidthConversion, EverySingleByteCharacterRoundTrips)
{
    for (const auto& [first, last] : {std::pair<char16_t, char16_t>{0x20, 0x7E}, {0xFF61, 0xFF9F}}) {
        for (char16_t c = first; c <= last; ++c) {
            const QString single(QChar{c});
            const QString wide = toFullWidth(single);
            EXPECT_TRUE(wide.size() == 1 && allHeldAs(wide, 2)) << int(c);
            EXPECT_EQ(toHalfWidth(wide), single) << int(c);
            EXPECT_EQ(toHalfWidth(single), single) << int(c);
        }
    }
}

// Every double-byte character: widening keeps it double-byte; narrowing keeps it or gives characters
// that the code page holds as single bytes (￥ becomes ¥, so that the operator still sees a yen sign).
TEST(WidthConversion, DoubleByteCharactersStayOrNarrowToSingleBytes)
{
    for (unsigned code = 0; code <= 0xFFFF; ++code) {
        if (heldByCodePage()[code] != 2)
            continue;
        const QString c{QChar(char16_t(code))};
        const QString wide = toFullWidth(c), narrow = toHalfWidth(c);
        EXPECT_TRUE(allHeldAs(wide, 2)) << std::hex << code;
        EXPECT_TRUE(narrow == c || allHeldAs(narrow, 1) || (code == 0xFFE5 && narrow == q(u"\u00A5")))
            << std::hex << code;
    }
}

} // namespace
} // namespace tolvinpt
