#pragma once

#include <QString>

namespace tolvinpt {

// Text widths as the Japanese code page 932 (Shift_JIS, Windows variant) sees them: a half-width
// character is one byte, a full-width one two. These functions keep ICU objects that are created on
// first use and shared afterwards: call them from the UI thread only.

// Length in bytes of `text` in code page 932 as Windows converts it. A character the code page cannot
// hold (an emoji, a Hangul syllable, U+00A5 ¥, an invisible one such as U+200F) counts as one substitute
// byte, so it is never taken for full-width; 〜 − ‖ ¢ £ ¬ count as the code page's ～ － ∥ ￠ ￡ ￢.
int cp932ByteLength(const QString& text);

// Every character that has a half-width form in code page 932 becomes it: full-width ASCII becomes
// ASCII, the ideographic blank a blank, katakana half-width katakana (ガ becomes ｶﾞ, so the text may
// grow), 、。「」・ー their half-width forms, “” and ‘’ " and '. Hiragana, kanji and anything else
// without a half-width form stay as they are. A lone surrogate becomes U+FFFD, here and in toFullWidth.
QString toHalfWidth(const QString& text);

// Every half-width character becomes its full-width form in code page 932: ASCII becomes full-width
// (" and ' become ” and ’, \ becomes ＼, ~ becomes ～), the blank the ideographic blank, half-width
// katakana full-width, a base and a following sound mark one character where the code page has one
// (ｶﾞ becomes ガ, but ﾜﾞ becomes ワ゛). Characters the code page holds under another code point become
// that one (〜 becomes ～, − becomes －), — and ‾ its ― and ￣. Characters that are already full-width stay.
QString toFullWidth(const QString& text);

// `text` with every surrogate that has no partner (what is left of an emoji cut at a field's limit)
// replaced by U+FFFD: text in the database can hold that, where UTF-8 would make the half a "?".
QString wholeCharacters(const QString& text);

// Unicode upper case.
QString toUpperCase(const QString& text);

// `text` without its trailing blanks (U+0020 only: a trailing ideographic blank U+3000 stays, so a
// half-width field that ends in one fails its width check).
QString rightTrim(const QString& text);
// `text` without blanks (U+0020) on either side; ideographic blanks stay.
QString trimBlanks(const QString& text);

} // namespace tolvinpt
