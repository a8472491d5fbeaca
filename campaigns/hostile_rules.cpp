// The rules written a second time, from their statement and apart from the forms' code, so that the
// campaign compares two readings: code page 932 through the C library's iconv (not ICU), the width
// tables as strings in JIS X 0201 order, numbers as digit strings.
#include "campaigns/hostile_rules.h"

#include <QChar>

#include <iconv.h>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace tolvinpt::campaign {
namespace {

using K = Keys;
// clang-format off
const Field EntryFormFields[] = {
    {u"txtOrderNo"_s,        u"F00007"_s, Rule::HalfWidth, 23},
    {u"txtPaymentKeyNo"_s,   u"F00159"_s, Rule::HalfWidth, 23},
    {u"txtTantoA"_s,         u"F00018"_s, Rule::HalfWidth, 7},
    {u"txtTantoK"_s,         u"F00260"_s, Rule::FullWidth, 7},
    {u"txtKensa"_s,          u"F00029"_s, Rule::HalfWidth, 3, K::Any, false},
    {u"txtPlaceC"_s,         u"F00028"_s, Rule::HalfWidth, 8},
    {u"txtPlaceA"_s,         u"F00160"_s, Rule::HalfWidth, 20},
    {u"txtPlaceK"_s,         u"F00274"_s, Rule::FullWidth, 20},
    {u"txtHCode"_s,          u"F00024"_s, Rule::HalfWidth, 25},
    {u"txtMyHCode"_s,        u"F00023"_s, Rule::HalfWidth, 25},
    {u"txtHinmeiA"_s,        u"F00022"_s, Rule::HalfWidth, 30},
    {u"txtHinmeiK"_s,        u"F00262"_s, Rule::FullWidth, 30},
    {u"txtDate(0)"_s,        u"F00031"_s, Rule::Date, 8, K::Digit, false},
    {u"txtDate(1)"_s,        u"F00039"_s, Rule::Date, 8, K::Digit, false},
    {u"txtDate(2)"_s,        u"F00040"_s, Rule::Date, 8, K::Digit, false},
    {u"txtAmountOrder"_s,    u"F00015"_s, Rule::Quantity, 13, K::Number, false},
    {u"txtAmountIndicate"_s, u"F00032"_s, Rule::Quantity, 13, K::Number, false},
    {u"txtAmountDelivery"_s, u"F00036"_s, Rule::Quantity, 13, K::Number, false},
    {u"txtUnit"_s,           u"F00012"_s, Rule::HalfWidth, 3, K::UpperCase, false},
    {u"txtUnitPrice"_s,      u"F00013"_s, Rule::UnitPrice, 17, K::Number, false},
    {u"cobCurrency"_s,       u"F00281"_s, Rule::CurrencyCode, 0, K::UpperLetter, false},
    {u"txtQuantity"_s,       u"Quantity"_s, Rule::PackageQuantity, 13, K::Number, false},
    {u"txtMyRemarksA"_s,     u"F00164"_s, Rule::HalfWidth, 25},
    {u"txtMyRemarksK"_s,     u"F00276"_s, Rule::FullWidth, 25},
    {u"txtMyBar"_s,          u"F00163"_s, Rule::HalfWidth, 23},
    {u"txtCustomRemarksA"_s, u"F00162"_s, Rule::HalfWidth, 50},
    {u"txtCustomRemarksK"_s, u"F00275"_s, Rule::FullWidth, 50},
    {u"txtCustomBar"_s,      u"F00161"_s, Rule::HalfWidth, 23},
};
const Field SplitDialogFields[] = {
    {u"txtPayment(1)"_s,     u"F00159"_s, Rule::SplitKey, 23},
    {u"txtAmount(1)"_s,      u"F00036"_s, Rule::SplitQuantity, 13, K::Number, false},
};
const Field PackageEditorFields[] = {
    {u"txtEquality"_s,       u"Quantity"_s, Rule::EqualSplit, 13, K::Number, false},
};
// A number cell: number keys only, no input method, no length limit of its own.
const Field PackageGridFields[] = {
    {u"spdQuantity(1)"_s,    u"Quantity"_s, Rule::PackageCell, 0, K::Number, false},
    {u"spdQuantity(50)"_s,   u"Quantity"_s, Rule::PackageCell, 0, K::Number, false},
    {u"spdQuantity(100)"_s,  u"Quantity"_s, Rule::PackageCell, 0, K::Number, false},
};
// clang-format on

// JIS X 0201 katakana U+FF61 to U+FF9F and their full-width forms, in the same order.
const QString HalfKana = [] {
    QString text;
    for (char16_t c = 0xFF61; c <= 0xFF9F; ++c)
        text += QChar(c);
    return text;
}();
const QString FullKana = u"。「」、・ヲァィゥェォャュョッーアイウエオカキクケコサシスセソタチツテトナニヌネノ"
                         u"ハヒフヘホマミムメモヤユヨラリルレロワン゛゜"_s;
constexpr char16_t Voiced = 0x3099, SemiVoiced = 0x309A;

// Code page 932 as Windows counts it: a character it cannot hold is one substitute byte.
int cp932Bytes(char32_t c)
{
    static iconv_t converter = iconv_open("CP932", "UTF-32LE");
    char32_t in[] = {c};
    char out[8];
    char* inPointer = reinterpret_cast<char*>(in);
    char* outPointer = out;
    size_t inLeft = sizeof(in), outLeft = sizeof(out);
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    if (iconv(converter, &inPointer, &inLeft, &outPointer, &outLeft) == size_t(-1))
        return 1;
    return int(sizeof(out) - outLeft);
}

// Code points, a lone surrogate standing for itself.
QList<char32_t> codePoints(const QString& text)
{
    QList<char32_t> points;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            points.append(QChar::surrogateToUcs4(text[i], text[i + 1]));
            ++i;
        } else {
            points.append(text[i].unicode());
        }
    }
    return points;
}

// One code point as text; QString::fromUcs4 would drop a byte order mark.
QString fromPoint(char32_t c)
{
    if (c <= 0xFFFF)
        return QString(QChar(char16_t(c)));
    const QChar pair[] = {QChar(QChar::highSurrogate(c)), QChar(QChar::lowSurrogate(c))};
    return QString(pair, 2);
}

QString rightTrim(QString text)
{
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

QString trimBlanks(const QString& text)
{
    qsizetype start = 0;
    while (start < text.size() && text[start] == u' ')
        ++start;
    return rightTrim(text.mid(start));
}

// One character without its sound mark: its half-width form, or itself.
QString narrowOne(char16_t u)
{
    const qsizetype kana = FullKana.indexOf(QChar(u));
    if (u >= 0xFF01 && u <= 0xFF5E)
        return QString(QChar(char16_t(u - 0xFF01 + 0x21)));
    if (kana >= 0)
        return QString(HalfKana[kana]);
    switch (u) {
    case 0x3000: return u" "_s;
    case Voiced: return u"\uFF9E"_s;
    case SemiVoiced: return u"\uFF9F"_s;
    case 0x201C: case 0x201D: return u"\""_s;
    case 0x2018: case 0x2019: return u"'"_s;
    case 0x301C: return u"~"_s;
    case 0x2212: return u"-"_s;
    case 0xFFE5: return u"\u00A5"_s;
    default: return QString(QChar(u));
    }
}

// A lone surrogate is no character: both conversions make it U+FFFD.
char32_t whole(char32_t c)
{
    return QChar::isSurrogate(c) ? char32_t(QChar::ReplacementCharacter) : c;
}

QString narrow(const QString& text)
{
    QString out;
    for (char32_t point : codePoints(text)) {
        const char32_t c = whole(point);
        if (c > 0xFFFF) {
            out += fromPoint(c);
            continue;
        }
        // A voiced katakana is its base and the separate sound mark.
        const QString one = fromPoint(c);
        const QString parts = c >= 0x30A1 && c <= 0x30FA ? one.normalized(QString::NormalizationForm_D) : one;
        for (QChar part : parts)
            out += narrowOne(part.unicode());
    }
    return out;
}

QString widen(const QString& text)
{
    static const QHash<char32_t, QString> heldAs = {
        {U'"', u"\u201D"_s},  {U'\'', u"\u2019"_s}, {0x301C, u"\uFF5E"_s}, {0x2212, u"\uFF0D"_s},
        {0x2016, u"\u2225"_s}, {0xA2, u"\uFFE0"_s},  {0xA3, u"\uFFE1"_s},   {0xAC, u"\uFFE2"_s},
        {0xA5, u"\uFFE5"_s},   {0x2014, u"\u2015"_s}, {0x203E, u"\uFFE3"_s}, {Voiced, u"\u309B"_s},
        {SemiVoiced, u"\u309C"_s}, {0x30F7, u"\u30EF\u309B"_s}, {0x30FA, u"\u30F2\u309B"_s}};
    QList<char32_t> points = codePoints(text);
    std::transform(points.begin(), points.end(), points.begin(), whole);
    QString out;
    for (qsizetype i = 0; i < points.size(); ++i) {
        const char32_t c = points[i];
        const qsizetype kana = c <= 0xFFFF ? HalfKana.indexOf(QChar(char16_t(c))) : -1;
        if (kana >= 0) {
            QString wide = FullKana[kana];
            const char32_t next = i + 1 < points.size() ? points[i + 1] : 0;
            if (kana < 61 && (next == 0xFF9E || next == 0xFF9F)) {
                const QString joined =
                    QString(wide + QChar(next == 0xFF9E ? Voiced : SemiVoiced)).normalized(QString::NormalizationForm_C);
                if (joined.size() == 1 && cp932Bytes(joined[0].unicode()) == 2) {
                    wide = joined;
                    ++i;
                }
            }
            out += wide;
        } else if (heldAs.contains(c)) {
            out += heldAs.value(c);
        } else if (c == U' ') {
            out += QChar(0x3000);
        } else if (c > 0x20 && c < 0x7F) {
            out += QChar(char16_t(c - 0x21 + 0xFF01));
        } else {
            out += fromPoint(c);
        }
    }
    return out;
}

// A decimal number as digit strings, exact.
struct Number
{
    bool negative = false;
    QString integer = u"0"_s;
    QString fraction;

    bool isZero() const
    {
        return std::all_of(integer.cbegin(), integer.cend(), [](QChar c) { return c == u'0'; }) &&
               std::all_of(fraction.cbegin(), fraction.cend(), [](QChar c) { return c == u'0'; });
    }
};

Number normalised(Number n)
{
    while (n.integer.size() > 1 && n.integer.startsWith(u'0'))
        n.integer.remove(0, 1);
    if (n.integer.isEmpty())
        n.integer = u"0"_s;
    while (n.fraction.endsWith(u'0'))
        n.fraction.chop(1);
    if (n.isZero())
        n.negative = false;
    return n;
}

// Rounded half to even to `decimals` places.
Number rounded(Number n, int decimals)
{
    if (n.fraction.size() <= decimals)
        return normalised(n);
    const QChar first = n.fraction[decimals];
    const QString rest = n.fraction.mid(decimals + 1);
    QString digits = n.integer + n.fraction.left(decimals);
    const bool restZero = std::all_of(rest.cbegin(), rest.cend(), [](QChar c) { return c == u'0'; });
    const bool lastOdd = (digits.back().unicode() - u'0') % 2 == 1;
    if (first > u'5' || (first == u'5' && (!restZero || lastOdd))) {
        qsizetype i = digits.size() - 1;
        while (i >= 0 && digits[i] == u'9')
            digits[i--] = u'0';
        if (i < 0)
            digits.prepend(u'1');
        else
            digits[i] = QChar(char16_t(digits[i].unicode() + 1));
    }
    n.integer = digits.left(digits.size() - decimals);
    n.fraction = digits.right(decimals);
    return normalised(n);
}

// Compares magnitudes of normalised numbers.
int compareMagnitude(const Number& a, const Number& b)
{
    if (a.integer.size() != b.integer.size())
        return a.integer.size() < b.integer.size() ? -1 : 1;
    if (const int c = QString::compare(a.integer, b.integer); c != 0)
        return c < 0 ? -1 : 1;
    const qsizetype width = std::max(a.fraction.size(), b.fraction.size());
    const int c = QString::compare(a.fraction.leftJustified(width, u'0'), b.fraction.leftJustified(width, u'0'));
    return c < 0 ? -1 : c > 0 ? 1 : 0;
}

int compare(const Number& a, const Number& b)
{
    if (a.negative != b.negative)
        return a.isZero() && b.isZero() ? 0 : a.negative ? -1 : 1;
    const int magnitude = compareMagnitude(a, b);
    return a.negative ? -magnitude : magnitude;
}

Number number(const QString& text)
{
    Number n;
    const qsizetype point = text.indexOf(u'.');
    n.negative = text.startsWith(u'-');
    const QString digits = n.negative ? text.mid(1) : text;
    const qsizetype at = digits.indexOf(u'.');
    n.integer = at < 0 ? digits : digits.left(at);
    n.fraction = at < 0 ? QString() : digits.mid(at + 1);
    Q_UNUSED(point);
    return normalised(n);
}

QString shown(const Number& n, int fixedDecimals = -1)
{
    QString fraction = n.fraction;
    if (fixedDecimals >= 0)
        fraction = fraction.leftJustified(fixedDecimals, u'0');
    QString text = (n.negative ? u"-"_s : QString()) + n.integer;
    return fraction.isEmpty() ? text : text + u'.' + fraction;
}

// At most 28 significant digits: more integer digits saturate at 28 nines.
Number limited(Number n)
{
    if (n.integer.size() > 28 && n.integer != u"0"_s) {
        n.integer = QString(28, u'9');
        n.fraction.clear();
    }
    return n;
}

// The leading number: blanks (space, tab, line feed) skipped anywhere, a sign, digits, one point.
Number leadingNumber(const QString& text)
{
    QString compact;
    for (QChar c : text)
        if (c != u' ' && c != u'\t' && c != u'\n')
            compact += c;
    Number n;
    qsizetype i = 0;
    if (i < compact.size() && (compact[i] == u'+' || compact[i] == u'-'))
        n.negative = compact[i++] == u'-';
    QString integer, fraction;
    bool point = false;
    for (; i < compact.size(); ++i) {
        const QChar c = compact[i];
        if (c >= u'0' && c <= u'9')
            (point ? fraction : integer) += c;
        else if (c == u'.' && !point)
            point = true;
        else
            break;
    }
    n.integer = integer;
    n.fraction = fraction;
    return limited(normalised(n));
}

// The strict number: the whole text, blanks (space, tab) around, a sign, digits with "," between two
// digits, one point.
std::optional<Number> strictNumber(const QString& text)
{
    QString t = text;
    while (!t.isEmpty() && (t.front() == u' ' || t.front() == u'\t'))
        t.remove(0, 1);
    while (!t.isEmpty() && (t.back() == u' ' || t.back() == u'\t'))
        t.chop(1);
    Number n;
    qsizetype i = 0;
    if (i < t.size() && (t[i] == u'+' || t[i] == u'-'))
        n.negative = t[i++] == u'-';
    QString integer, fraction;
    for (; i < t.size(); ++i) {
        const QChar c = t[i];
        if (c >= u'0' && c <= u'9')
            integer += c;
        else if (c == u',' && !integer.isEmpty() && i + 1 < t.size() && t[i + 1] >= u'0' && t[i + 1] <= u'9')
            continue;
        else
            break;
    }
    if (i < t.size() && t[i] == u'.') {
        for (++i; i < t.size() && t[i] >= u'0' && t[i] <= u'9'; ++i)
            fraction += t[i];
    }
    if (i != t.size() || (integer.isEmpty() && fraction.isEmpty()))
        return std::nullopt;
    n.integer = integer;
    n.fraction = fraction;
    n = normalised(n);
    if (n.integer.size() > 28 && n.integer != u"0"_s)
        return std::nullopt;
    return n;
}

Outcome refusal(QStringList messages)
{
    Outcome outcome;
    outcome.refused = true;
    outcome.messages = std::move(messages);
    return outcome;
}

Outcome storing(QHash<QString, QVariant> stored)
{
    Outcome outcome;
    outcome.stored = std::move(stored);
    return outcome;
}

const Number MaxQuantity = number(u"999999999.999"_s);

bool isCalendarDate(int y, int m, int d)
{
    static constexpr int Days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (y < 1 || m < 1 || m > 12 || d < 1)
        return false;
    const bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
    return d <= Days[m - 1] + (m == 2 && leap ? 1 : 0);
}

QString isoDate(const QString& ymd)
{
    return ymd.left(4) + u'-' + ymd.mid(4, 2) + u'-' + ymd.right(2);
}

Outcome widthOutcome(const Field& field, const QString& box, bool full, const Around& around)
{
    Outcome outcome;
    const QString s = full ? widen(rightTrim(box)) : narrow(rightTrim(box));
    int bytes = 0;
    for (char32_t c : codePoints(rightTrim(s)))
        bytes += cp932Bytes(c);
    const int characters = int(codePoints(s).size());
    if (bytes == (full ? 2 : 1) * characters) {
        outcome.stored.insert(field.column, s);
        if (field.name == u"txtOrderNo" && rightTrim(s).isEmpty())
            outcome = refusal({u"注文番号は必須入力です"_s});
        if (field.name == u"txtPaymentKeyNo" && rightTrim(s).isEmpty())
            outcome = refusal({u"納品ｷｰ番号は必須入力です"_s});
        if (field.name == u"txtHCode" && rightTrim(s).isEmpty() && !around.itemName)
            outcome = refusal({u"発注者品名ｺｰﾄﾞ、または品名は必須入力です"_s});
        return outcome;
    }
    outcome.refused = true;
    outcome.messages.append((full ? u"全角文字のみ入力可能です"_s : u"半角文字のみ入力可能です"_s) +
                            u"\r\n最大文字数は "_s + QString::number(field.maxLength) + u" 桁です"_s);
    return outcome;
}

Outcome quantityOutcome(const Field& field, const QString& box, const Around& around)
{
    Number v = rounded(leadingNumber(box), 3);
    if (compare(v, MaxQuantity) > 0)
        v = MaxQuantity;
    Outcome outcome;
    if (field.name == u"txtAmountOrder" && v.isZero())
        return refusal({u"注文数量が ｾﾞﾛ です"_s, u"必要項目が入力されていませんが、保存してよろしいですか"_s});
    if (field.name == u"txtAmountDelivery" && v.isZero())
        return refusal({u"納入数量に ｾﾞﾛ は入力できません"_s});
    outcome.stored.insert(field.column, shown(v));
    if (field.name == u"txtAmountDelivery") {
        // A single package follows the delivery quantity.
        outcome.stored.insert(u"Quantity"_s, shown(v));
        outcome.stored.insert(u"QuantityType"_s, u"1"_s);
    }
    Q_UNUSED(around);
    return outcome;
}

Outcome dateOutcome(const Field& field, const QString& box, const Around& around)
{
    const int index = field.name.mid(8, 1).toInt();
    if (box.isEmpty()) {
        if (index == 0 && around.shipAndDueDateRequired)
            return refusal({u"納期が入力されていません"_s, u"必要項目が入力されていませんが、保存してよろしいですか"_s});
        if (index == 1 && around.shipAndDueDateRequired)
            return refusal({u"出荷日が入力されていません"_s, u"必要項目が入力されていませんが、保存してよろしいですか"_s});
        return storing({{field.column, QVariant()}});
    }
    if (box.size() != 8 && box.size() != 6)
        return refusal({u"日付の入力が不正です\r\n6 桁 または 8 桁で入力してください"_s});
    const bool digits = std::all_of(box.cbegin(), box.cend(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    const QString notADate = u"入力された値は日付として認識できません"_s;
    if (!digits)
        return refusal({notADate});
    QString ymd = box;
    if (box.size() == 6)
        ymd = (box.left(2).toInt() <= 50 ? u"20"_s : u"19"_s) + box;
    if (!isCalendarDate(ymd.left(4).toInt(), ymd.mid(4, 2).toInt(), ymd.right(2).toInt()))
        return refusal({notADate});
    if (ymd < u"19510101"_s || ymd > u"20501231"_s)
        return refusal({u"日付が入力可能範囲外です\r\n\r\n入力可能範囲 ： 1951年 1月 1日 ～ 2050年12月31日"_s});
    Outcome outcome;
    outcome.stored.insert(field.column, isoDate(ymd));
    const bool contradicts = (index == 1 && !around.deliveryDate.isEmpty() && ymd > around.deliveryDate) ||
                             (index == 2 && !around.shipDate.isEmpty() && ymd < around.shipDate);
    if (contradicts) {
        outcome.messages.append(u"出荷日と納入日の日付が矛盾しているため自動修正します"_s);
        outcome.stored.insert(index == 1 ? u"F00040"_s : u"F00039"_s, isoDate(ymd));
    }
    return outcome;
}

Outcome priceOutcome(const QString& box)
{
    const std::optional<Number> read = strictNumber(box);
    const Number p = read ? rounded(*read, 3) : Number{};
    if (compare(p, MaxQuantity) > 0)
        return refusal({u"単価の最大値は 999,999,999.999 です"_s});
    return storing({{u"F00013"_s, p.isZero() ? u"0"_s : shown(p)}, {u"F00282"_s, u"0"_s}, {u"F00281"_s, u""_s}});
}

Outcome currencyOutcome(const QString& box, const Around& around)
{
    QString kept; // as it will be stored: no half of a character
    for (char32_t c : codePoints(box))
        kept += fromPoint(whole(c));
    const QString code = trimBlanks(kept);
    if (code.isEmpty())
        return storing({{u"F00281"_s, u""_s}, {u"F00013"_s, around.unitPrice}, {u"F00282"_s, u"0"_s}});
    int bytes = 0;
    for (char32_t c : codePoints(code))
        bytes += cp932Bytes(c);
    if (bytes > 3)
        return refusal({u"通貨 ｺｰﾄﾞ には、半角 3 文字まで入力可能です"_s});
    if (code == u"JPY")
        return storing({{u"F00281"_s, u""_s}, {u"F00013"_s, around.unitPrice}, {u"F00282"_s, u"0"_s}});
    return storing({{u"F00281"_s, code}, {u"F00013"_s, u"0"_s}, {u"F00282"_s, around.unitPrice}});
}

Outcome packageQuantityOutcome(const QString& box, const Around& around)
{
    const Number d = number(around.deliveryQuantity);
    Number q = rounded(leadingNumber(box), 3);
    if (q.isZero() || compare(q, d) > 0)
        q = d;
    return storing({{u"Quantity"_s, shown(q)}, {u"QuantityType"_s, compare(q, d) == 0 ? u"1"_s : u"2"_s}});
}

Outcome equalSplitOutcome(const QString& box, const Around& around)
{
    const QString text = trimBlanks(box);
    if (text.isEmpty())
        return storing({{u"Quantity"_s, u"0"_s}, {u"QuantityType"_s, u"3"_s}});
    const std::optional<Number> read = strictNumber(text);
    if (!read)
        return refusal({u"均等割数は [ 0 ～ "_s + around.deliveryQuantity + u" ] の範囲で入力してください"_s});
    const Number perPackage = rounded(*read, 4);
    if (compare(perPackage, number(around.deliveryQuantity)) > 0)
        return refusal({u"納入数量を超えています"_s});
    return storing({{u"Quantity"_s, shown(rounded(perPackage, 3))}, {u"QuantityType"_s, u"3"_s}});
}

QChar folded(QChar c)
{
    return c >= u'A' && c <= u'Z' ? QChar(char16_t(c.unicode() + 32)) : c;
}

// The Like pattern of the split's key test, matched by hand: * ? # [set] [a-z] [!set], ASCII letters
// without case. Nullopt for a pattern with a [ that is not closed or a descending range.
std::optional<bool> likeMatches(QStringView pattern, QStringView text)
{
    if (pattern.isEmpty())
        return text.isEmpty();
    const QChar p = pattern.front();
    if (p == u'*') {
        for (qsizetype skip = 0; skip <= text.size(); ++skip) {
            const std::optional<bool> rest = likeMatches(pattern.mid(1), text.mid(skip));
            if (!rest || *rest)
                return rest;
        }
        return false;
    }
    qsizetype used = 1;
    bool one = false;
    if (p == u'[') {
        const qsizetype end = pattern.indexOf(u']', 1);
        if (end < 0)
            return std::nullopt;
        QStringView set = pattern.mid(1, end - 1);
        used = end + 1;
        const bool negated = set.startsWith(u'!');
        if (negated)
            set = set.mid(1);
        if (set.isEmpty())
            return likeMatches(pattern.mid(used), text); // [] stands for nothing
        bool member = false;
        for (qsizetype k = 0; k < set.size(); ++k) {
            if (k + 2 < set.size() && set[k + 1] == u'-') {
                if (set[k] > set[k + 2])
                    return std::nullopt;
                member = member || (!text.isEmpty() && folded(text.front()) >= folded(set[k]) &&
                                    folded(text.front()) <= folded(set[k + 2]));
                k += 2;
            } else {
                member = member || (!text.isEmpty() && folded(text.front()) == folded(set[k]));
            }
        }
        one = !text.isEmpty() && member != negated;
    } else if (!text.isEmpty()) {
        one = p == u'?' || (p == u'#' ? text.front().isDigit() && text.front() < u'\x80'
                                       : folded(text.front()) == folded(p));
    }
    // The rest of the pattern must still be valid, whatever this character did.
    const std::optional<bool> rest = likeMatches(pattern.mid(used), text.isEmpty() ? text : text.mid(1));
    if (!rest)
        return rest;
    return one && *rest;
}

Outcome splitKeyOutcome(const Field& field, const QString& box, const Around& around)
{
    if (box == around.sourceKey)
        return refusal({u"納品ｷｰ番号を入力してください"_s});
    Outcome outcome = widthOutcome(field, box, false, around);
    if (outcome.refused) {
        // OK checks again what the refusal wrote back, which may pass: a trailing ideographic blank
        // narrowed to a blank is trimmed the second time.
        const QString written = narrow(rightTrim(box));
        if (written == box)
            return outcome;
        Outcome again = splitKeyOutcome(field, written, around);
        again.messages.prepend(outcome.messages.front());
        return again;
    }
    const QString key = outcome.stored.value(field.column).toString();
    const std::optional<bool> taken = likeMatches(rightTrim(key), around.sourceKey);
    if (!taken) {
        outcome.databaseMayRefuse = true;
    } else if (*taken) {
        return refusal({u"同一の納品ｷｰ番号が存在します\r\n保存できません"_s});
    }
    return outcome;
}

Outcome splitQuantityOutcome(const QString& box, const Around& around)
{
    const Number q = rounded(leadingNumber(box), 3);
    const QString title;
    if (q.isZero())
        return refusal({u"納入数量に ｾﾞﾛ は入力できません"_s});
    if (q.negative) // only a paste brings a sign
        return refusal({u"納入数量に ﾏｲﾅｽ は入力できません"_s});
    if (compare(q, MaxQuantity) > 0)
        return refusal({u"納入数量の最大値は 999,999,999.999 です"_s});
    // The source keeps at least 0.001.
    const Number source = number(around.deliveryQuantity);
    const double rest = source.integer.toDouble() - shown(q).toDouble();
    if (rest < 0.001 - 1e-9)
        return refusal({u"分割後の数量が、分割前の数量を超えています"_s});
    return storing({{u"F00036"_s, shown(q)}});
}

// The currency code box completes what was entered to the first listed code that starts with it.
QString completedCode(const QString& text)
{
    static const QStringList Codes = {u"JPY"_s, u"USD"_s, u"GBP"_s, u"DEM"_s, u"FRF"_s, u"ITL"_s,
                                      u"XEU"_s, u"CNY"_s, u"HKD"_s, u"SGD"_s, u"KRW"_s};
    for (const QString& code : Codes)
        if (!text.isEmpty() && code.startsWith(text, Qt::CaseInsensitive))
            return code;
    return text;
}

} // namespace

std::span<const Field> entryFormFields()
{
    return EntryFormFields;
}

std::span<const Field> splitDialogFields()
{
    return SplitDialogFields;
}

std::span<const Field> packageEditorFields()
{
    return PackageEditorFields;
}

std::span<const Field> packageGridFields()
{
    return PackageGridFields;
}

qint64 packageCell(const QString& text)
{
    Number v = rounded(leadingNumber(text), 3);
    if (v.negative || v.isZero())
        return 0;
    if (compare(v, MaxQuantity) > 0)
        v = MaxQuantity;
    return v.integer.toLongLong() * 1000 + v.fraction.leftJustified(3, u'0').toLongLong();
}

QStringList pastedLines(const QString& text)
{
    QStringList lines;
    QString line;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != u'\r' && text[i] != u'\n') {
            line += text[i];
            continue;
        }
        if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n')
            ++i;
        lines << line.section(u'\t', 0, 0);
        line.clear();
    }
    if (!line.isEmpty() || lines.isEmpty())
        lines << line.section(u'\t', 0, 0);
    return lines;
}

bool keyboardTypes(char32_t c)
{
    return c <= 0xFFFF && !QChar::isSurrogate(c) && QChar::isPrint(c);
}

QString entered(const Field& field, const QString& before, const QString& input, bool typed)
{
    QString box = before;
    bool replaced = false;
    const auto insert = [&](const QString& piece) {
        if (piece.isEmpty())
            return;
        if (!replaced)
            box.clear();
        replaced = true;
        box += field.maxLength > 0 ? piece.left(std::max<qsizetype>(0, field.maxLength - box.size())) : piece;
    };
    if (!typed) {
        insert(input);
        return field.rule == Rule::CurrencyCode ? completedCode(box) : box;
    }
    for (char32_t c : codePoints(input)) {
        if (!keyboardTypes(c)) {
            if (field.inputMethod)
                insert(fromPoint(c));
            continue;
        }
        const bool printableAscii = c >= 32 && c <= 126;
        const bool digit = c >= U'0' && c <= U'9';
        switch (field.keys) {
        case Keys::Any:
            insert(fromPoint(c));
            break;
        case Keys::Number:
            if (!printableAscii || digit || c == U'.')
                insert(fromPoint(c));
            break;
        case Keys::Digit:
            if (!printableAscii || digit)
                insert(fromPoint(c));
            break;
        case Keys::UpperCase:
            insert(fromPoint(QChar::toUpper(c)));
            break;
        case Keys::UpperLetter:
            insert(fromPoint(c >= U'a' && c <= U'z' ? c - 32 : c));
            break;
        }
    }
    return field.rule == Rule::CurrencyCode ? completedCode(box) : box;
}

Outcome expectedOutcome(const Field& field, const QString& box, const Around& around)
{
    switch (field.rule) {
    case Rule::HalfWidth:
        return widthOutcome(field, box, false, around);
    case Rule::FullWidth:
        return widthOutcome(field, box, true, around);
    case Rule::Quantity:
        return quantityOutcome(field, box, around);
    case Rule::PackageQuantity:
        return packageQuantityOutcome(box, around);
    case Rule::UnitPrice:
        return priceOutcome(box);
    case Rule::Date:
        return dateOutcome(field, box, around);
    case Rule::CurrencyCode:
        return currencyOutcome(box, around);
    case Rule::EqualSplit:
        return equalSplitOutcome(box, around);
    case Rule::SplitKey:
        return splitKeyOutcome(field, box, around);
    case Rule::SplitQuantity:
        return splitQuantityOutcome(box, around);
    case Rule::PackageCell:
        break; // the grid's case states its outcome (packageCell)
    }
    return {};
}

} // namespace tolvinpt::campaign
