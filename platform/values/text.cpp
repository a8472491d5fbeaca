#include "platform/values/text.h"

#include <QVarLengthArray>

#include <unicode/translit.h>
#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tolvinpt {

namespace {

// One character that ICU's width transliteration leaves in a form the code page does not agree with.
struct WidthFix
{
    char16_t from;
    std::u16string_view to;
};

// Characters that Windows converts as the code page's character under another code point; ICU's table
// does not hold them. They count and widen as that one.
constexpr WidthFix HeldAs[] = {
    {u'\u301C', u"\uFF5E"}, // 〜 ～
    {u'\u2212', u"\uFF0D"}, // − －
    {u'\u2016', u"\u2225"}, // ‖ ∥
    {u'\u00A2', u"\uFFE0"}, // ¢ ￠
    {u'\u00A3', u"\uFFE1"}, // £ ￡
    {u'\u00AC', u"\uFFE2"}, // ¬ ￢
};

// A private-use code point that ICU's table maps and Windows does not: one substitute byte.
constexpr char16_t NotHeld = u'\uF86F';

// Applied after Halfwidth-Fullwidth, with HeldAs.
constexpr WidthFix WideningFixes[] = {
    {u'\u3099', u"\u309B"}, // a sound mark that joined no base (ｱﾞ, or ﾞ alone) stays a spacing mark
    {u'\u309A', u"\u309C"},
    {u'\u30F7', u"\u30EF\u309B"}, // ヷ and ヺ are not in the code page: base and mark
    {u'\u30FA', u"\u30F2\u309B"},
    {u'\u2014', u"\u2015"}, // — and ‾ are not in the code page; its dash and macron are
    {u'\u203E', u"\uFFE3"},
};

// Applied after Fullwidth-Halfwidth.
constexpr WidthFix NarrowingFixes[] = {
    {u'\u201C', u"\""}, // the code page's quotation marks narrow to the ASCII ones
    {u'\u201D', u"\""},     {u'\u2018', u"'"}, {u'\u2019', u"'"},
    {u'\u309B', u"\uFF9E"},                    // spacing sound marks ゛゜ have half-width forms
    {u'\u309C', u"\uFF9F"}, {u'\u301C', u"~"}, // the code page's wave dash and minus, under their other code
                                               // points
    {u'\u2212', u"-"},
};

struct ConverterCloser
{
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};

// Everything the code page cannot hold becomes one substitute byte, as on Windows. ICU's own substitute
// is two bytes, and its substitution skips default-ignorable characters (U+200B, U+FEFF, the variation
// selectors...) altogether.
void substituteOneByte(const void*, UConverterFromUnicodeArgs* args, const UChar*, int32_t, UChar32,
                       UConverterCallbackReason reason, UErrorCode* status)
{
    if (reason > UCNV_IRREGULAR)
        return; // reset, close or clone: nothing to convert
    *status = U_ZERO_ERROR;
    ucnv_cbFromUWriteBytes(args, "?", 1, 0, status);
}

UConverter* cp932Converter()
{
    static const std::unique_ptr<UConverter, ConverterCloser> converter = [] {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<UConverter, ConverterCloser> opened(ucnv_open("windows-31j", &status));
        if (U_SUCCESS(status))
            ucnv_setFromUCallBack(opened.get(), substituteOneByte, nullptr, nullptr, nullptr, &status);
        if (U_FAILURE(status))
            throw std::runtime_error(std::string("code page 932 converter: ") + u_errorName(status));
        return opened;
    }();
    return converter.get();
}

const WidthFix* fixOf(std::span<const WidthFix> fixes, char16_t c)
{
    const auto fix = std::find_if(fixes.begin(), fixes.end(), [c](const WidthFix& f) { return f.from == c; });
    return fix == fixes.end() ? nullptr : &*fix;
}

std::unique_ptr<icu::Transliterator> createTransliterator(const char* id)
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Transliterator> created(
        icu::Transliterator::createInstance(icu::UnicodeString::fromUTF8(id), UTRANS_FORWARD, status));
    if (U_FAILURE(status) || !created)
        throw std::runtime_error(std::string("transliterator ") + id + ": " + u_errorName(status));
    return created;
}

// `rule`, then each character of the result through the first of `tables` that has a fix for it.
QString transliterate(const icu::Transliterator& rule,
                      std::initializer_list<std::span<const WidthFix>> tables, const QString& text)
{
    icu::UnicodeString converted(reinterpret_cast<const UChar*>(text.utf16()), int32_t(text.size()));
    rule.transliterate(converted);
    QString result;
    result.reserve(converted.length());
    for (int32_t i = 0; i < converted.length(); ++i) {
        const char16_t c = converted.charAt(i);
        const WidthFix* fix = nullptr;
        for (auto table = tables.begin(); !fix && table != tables.end(); ++table)
            fix = fixOf(*table, c);
        if (fix)
            result += QStringView(fix->to);
        else
            result += QChar(c);
    }
    return result;
}

} // namespace

QString wholeCharacters(const QString& text)
{
    QString result = text;
    for (qsizetype i = 0; i < result.size(); ++i) {
        if (result[i].isHighSurrogate() && i + 1 < result.size() && result[i + 1].isLowSurrogate())
            ++i;
        else if (result[i].isSurrogate())
            result[i] = QChar::ReplacementCharacter;
    }
    return result;
}

int cp932ByteLength(const QString& text)
{
    if (text.isEmpty())
        return 0;
    QVarLengthArray<char16_t, 128> units(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        const WidthFix* held = fixOf(HeldAs, c);
        units[i] = held ? held->to.front() : c == NotHeld ? u'?' : c;
    }
    // A UTF-16 unit never takes more than two bytes; a surrogate pair becomes one substitute byte.
    QVarLengthArray<char, 256> bytes(2 * units.size());
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length =
        ucnv_fromUChars(cp932Converter(), bytes.data(), int32_t(bytes.size()),
                        reinterpret_cast<const UChar*>(units.data()), int32_t(units.size()), &status);
    Q_ASSERT(U_SUCCESS(status)); // the buffer always suffices and unmappable input is substituted
    return length;
}

QString toHalfWidth(const QString& text)
{
    // The code page holds ￠ ￡ ￢ ￣ ￤ and these arrows and shapes as full-width only: Unicode's
    // half-width forms of them are not in it.
    static const auto rule =
        createTransliterator("[^\\uFFE0-\\uFFE4\\u2190-\\u2193\\u2502\\u25A0\\u25CB] Fullwidth-Halfwidth");
    return transliterate(*rule, {NarrowingFixes}, wholeCharacters(text));
}

QString toFullWidth(const QString& text)
{
    static const auto rule = createTransliterator("Halfwidth-Fullwidth");
    // " and ' widen to JIS X 0208's ” and ’, not to the code page's vendor additions ＂ and ＇, which
    // stay as they are when they were typed so.
    QString quotesWidened = wholeCharacters(text);
    quotesWidened.replace(u'"', u'\u201D').replace(u'\'', u'\u2019');
    return transliterate(*rule, {HeldAs, WideningFixes}, quotesWidened);
}

QString toUpperCase(const QString& text)
{
    return text.toUpper();
}

QString rightTrim(const QString& text)
{
    qsizetype end = text.size();
    while (end > 0 && text[end - 1] == u' ')
        --end;
    return text.left(end);
}

QString trimBlanks(const QString& text)
{
    qsizetype start = 0;
    while (start < text.size() && text[start] == u' ')
        ++start;
    return rightTrim(text.mid(start));
}

} // namespace tolvinpt
