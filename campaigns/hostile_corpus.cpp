#include "campaigns/hostile_corpus.h"

#include <QRandomGenerator>

#include <initializer_list>

using namespace Qt::StringLiterals;

namespace tolvinpt::campaign {
namespace {

QString units(std::initializer_list<char16_t> codeUnits)
{
    QString text;
    for (char16_t unit : codeUnits)
        text += QChar(unit);
    return text;
}

QString codePoint(char32_t c)
{
    return QString::fromUcs4(&c, 1);
}

// The atoms of one class; each is used alone, between ordinary characters, and twice.
struct Kind
{
    QString name;
    QStringList atoms;
};

QList<Kind> kinds()
{
    QStringList controls, bidi, combining;
    for (char16_t c : {0x01, 0x07, 0x08, 0x09, 0x0A, 0x0B, 0x0C, 0x0D, 0x1B, 0x1F, 0x7F, 0x85, 0x9F})
        controls.append(units({c}));
    for (char16_t c : {0x200E, 0x200F, 0x202A, 0x202B, 0x202C, 0x202D, 0x202E, 0x2066, 0x2067, 0x2068, 0x2069,
                       0x061C})
        bidi.append(units({c}));
    bidi << u"abc\u202Edcba"_s << u"\u05E9\u05DC\u05D5\u05DD"_s << u"\u0645\u0631\u062D\u0628\u0627"_s;
    for (char16_t c : {0x0301, 0x0308, 0x20DD, 0x3099, 0x309A, 0x0336})
        combining << u"e"_s + QChar(c) << QString(QChar(c));
    combining << u"\u30AB\u3099"_s << u"\u304B\u3099"_s << u"\uFF76\u3099"_s
              << u"Z"_s + QString(20, QChar(0x0336)) + QString(20, QChar(0x0301));
    return {
        {u"quotes"_s, {u"'"_s, u"\""_s, u"''"_s, u"\"\""_s, u"`"_s, u"O'Brien"_s, u"\u201C\u201D"_s,
                       u"\u2018\u2019"_s, u"\uFF02\uFF07"_s, u"\u300C\u300D"_s}},
        {u"brackets"_s, {u"("_s, u")"_s, u"[]"_s, u"{}"_s, u"<>"_s, u"</td>"_s, u"\uFF08\uFF09"_s,
                         u"\uFF3B\uFF3D"_s, u"\u3010\u3011"_s}},
        {u"wildcards"_s, {u"*"_s, u"?"_s, u"#"_s, u"["_s, u"]"_s, u"!"_s, u"[!a]"_s, u"[*]"_s, u"[a-"_s,
                          u"[z-a]"_s, u"%"_s, u"_"_s, u"KEY-*"_s, u"[]"_s}},
        {u"sql"_s, {u"' OR '1'='1"_s, u"\"; DROP TABLE T_Delivery; --"_s, u"1; DELETE FROM T_Delivery"_s,
                    u"NULL"_s, u"' UNION SELECT * FROM T_DeliveryQTY --"_s, u"/* */"_s, u"?1"_s,
                    u":P00007"_s, u"[P00159]"_s, u"0x41"_s, u"char(0)"_s}},
        {u"backslashes"_s, {u"\\"_s, u"\\\\"_s, u"C:\\tmp\\"_s, u"\\n"_s, u"\\0"_s, u"\\'"_s, u"\\\""_s,
                            u"\\u0000"_s, u"\uFF3C"_s, u"\u00A5"_s}},
        {u"controls"_s, controls},
        {u"nul"_s, {units({0}), units({0, 0, 0}), u"1"_s + QChar(0) + u"2"_s, QChar(0) + u"KEY"_s}},
        {u"surrogates"_s, {units({0xD800}), units({0xDC00}), units({0xDBFF}), units({0xDC00, 0xD800}),
                           units({0xD83D})}},
        {u"bidi"_s, bidi},
        {u"combining"_s, combining},
        {u"outside cp932"_s, {codePoint(0x1F600), codePoint(0x1F468) + u"\u200D"_s + codePoint(0x1F469),
                              codePoint(0x1F1EF) + codePoint(0x1F1F5), u"\uD55C\uAD6D\uC5B4"_s,
                              u"\u20AC"_s, u"\u00A9"_s, u"\u00DF"_s, u"\u845B\uFE00"_s, codePoint(0x20BB7),
                              u"\uFFFD"_s, u"\uFEFF"_s, u"\u200B"_s, u"\uE000"_s, u"\uF86F"_s}},
        {u"half-width katakana"_s, {u"\uFF71\uFF72\uFF73"_s, u"\uFF76\uFF9E\uFF77\uFF9E"_s,
                                    u"\uFF8A\uFF9F"_s, u"\uFF70"_s, u"\uFF61\uFF62\uFF63\uFF64\uFF65"_s,
                                    u"\uFF9E"_s, u"\uFF73\uFF9E"_s, u"\uFF9C\uFF9E"_s, u"\uFF71\uFF9E"_s}},
        {u"full-width katakana"_s, {u"\u30A2\u30A4\u30A6"_s, u"\u30AC\u30AE"_s, u"\u30D1"_s, u"\u30F4"_s,
                                    u"\u30F7"_s, u"\u30FC"_s, u"\u30F5\u30F6"_s, u"\u3002\u300C\u300D\u3001\u30FB"_s,
                                    u"\u309B\u309C"_s, u"\u3042\u6F22"_s}},
        {u"full-width digits and signs"_s, {u"\uFF11\uFF12\uFF13"_s, u"\uFF0D\uFF15"_s, u"\uFF11\uFF0E\uFF15"_s,
                                            u"\uFF0B"_s, u"\uFF0C"_s, u"\uFF04\uFFE5\uFF05"_s,
                                            u"\uFF12\uFF10\uFF10\uFF15\uFF10\uFF13\uFF10\uFF11"_s,
                                            u"\u301C\u2212\u2016"_s, u"\u3000"_s}},
        {u"numbers"_s, {u"-1"_s, u"1e3"_s, u"&H10"_s, u"1,234"_s, u"1.2.3"_s, u" 12 "_s, u".5"_s, u"5."_s,
                        u"999999999.9995"_s, u"1000000000"_s, u"NaN"_s, u"-0"_s, QString(30, u'9'),
                        u"0.0005"_s, u"+7"_s, u"1 2"_s}},
        {u"dates"_s, {u"20050230"_s, u"19501231"_s, u"20501231"_s, u"500101"_s, u"510101"_s, u"2005-03-01"_s,
                      u"2005/3/1"_s, u"00000000"_s, u"99999999"_s, u"2005031"_s, u"20050308"_s}},
        {u"blanks"_s, {u" "_s, u"   "_s, u"\u3000\u3000"_s, u"A "_s, u" A"_s, u"\u00A0"_s, u"\t"_s}},
    };
}

QList<HostileString> generated()
{
    QList<HostileString> corpus;
    QStringList pool;
    for (const Kind& kind : kinds()) {
        for (const QString& atom : kind.atoms) {
            corpus.append({kind.name, atom});
            corpus.append({kind.name, u"A"_s + atom + u"1"_s});
            corpus.append({kind.name, atom + atom});
            pool.append(atom);
        }
    }
    // Texts far beyond every field's limit, typed or pasted whole.
    const QString emoji = codePoint(0x1F600);
    for (const QString& unit : {u"A"_s, u"\u3042"_s, u"9"_s, u"\uFF76\uFF9E"_s, emoji, u"'\""_s})
        corpus.append({u"long"_s, unit.repeated(10000 / unit.size())});
    corpus.append({u"long"_s, u"1."_s + QString(9998, u'9')});
    // Mixes: a few atoms of any classes in a row, the same every run.
    QRandomGenerator random(13);
    for (int n = 0; n < 60; ++n) {
        QString mix;
        for (int atoms = 2 + int(random.bounded(4)); atoms > 0; --atoms)
            mix += pool.at(int(random.bounded(qsizetype(pool.size()))));
        corpus.append({u"mixes"_s, mix});
    }
    return corpus;
}

} // namespace

QList<HostileString> hostileCorpus(int perClass)
{
    static const QList<HostileString> all = generated();
    if (perClass <= 0)
        return all;
    QList<HostileString> some;
    QString kind;
    int taken = 0;
    for (const HostileString& string : all) {
        taken = string.kind == kind ? taken + 1 : 1;
        kind = string.kind;
        // Spread over the class: each atom's first form, then the others.
        if (taken <= perClass * 3 && taken % 3 == 1)
            some.append(string);
    }
    return some;
}

QString visible(const QString& text, qsizetype limit)
{
    QString shown;
    for (qsizetype i = 0; i < text.size() && shown.size() < limit; ++i) {
        const char16_t c = text[i].unicode();
        shown += c >= 0x20 && c < 0x7F ? QString(QChar(c)) : u"\\u%1"_s.arg(int(c), 4, 16, QChar(u'0'));
    }
    if (text.size() > limit)
        shown += u"...(%1)"_s.arg(text.size());
    return shown;
}

} // namespace tolvinpt::campaign
