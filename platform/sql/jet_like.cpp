#include "platform/sql/jet_like.h"

#include <QList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tolvinpt::db {

namespace {

char32_t lowerAscii(char32_t c)
{
    return c >= U'A' && c <= U'Z' ? c + (U'a' - U'A') : c;
}

char32_t upperAscii(char32_t c)
{
    return c >= U'a' && c <= U'z' ? c - (U'a' - U'A') : c;
}

std::u32string toUtf32(QStringView text)
{
    const QList<uint> ucs4 = text.toUcs4();
    return std::u32string(ucs4.begin(), ucs4.end());
}

} // namespace

std::optional<LikePattern> LikePattern::compile(std::u32string_view pattern)
{
    LikePattern compiled;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char32_t c = pattern[i];
        Token token;
        switch (c) {
        case U'*':
            // A run of stars is one star.
            if (!compiled.m_tokens.empty() && compiled.m_tokens.back().kind == Token::AnyRun)
                continue;
            token.kind = Token::AnyRun;
            break;
        case U'?':
            token.kind = Token::AnyOne;
            break;
        case U'#':
            token.kind = Token::Digit;
            break;
        case U'[': {
            std::size_t j = i + 1;
            token.kind = Token::Set;
            if (j < pattern.size() && pattern[j] == U'!') {
                token.negated = true;
                ++j;
            }
            token.rangeBegin = static_cast<unsigned>(compiled.m_ranges.size());
            for (; j < pattern.size() && pattern[j] != U']'; ++j) {
                char32_t low = pattern[j];
                char32_t high = low;
                // A '-' between two characters makes a range; first or last in the set it is itself.
                if (j + 2 < pattern.size() && pattern[j + 1] == U'-' && pattern[j + 2] != U']') {
                    high = pattern[j + 2];
                    j += 2;
                }
                if (high < low)
                    return std::nullopt;
                compiled.m_ranges.push_back({low, high});
            }
            if (j >= pattern.size())
                return std::nullopt;
            token.rangeEnd = static_cast<unsigned>(compiled.m_ranges.size());
            i = j;
            // "[]" stands for the empty text: it consumes nothing.
            if (token.rangeBegin == token.rangeEnd && !token.negated)
                continue;
            break;
        }
        default:
            token.kind = Token::Literal;
            token.literal = lowerAscii(c);
            break;
        }
        compiled.m_tokens.push_back(token);
    }
    return compiled;
}

std::optional<LikePattern> LikePattern::compile(QStringView pattern)
{
    return compile(toUtf32(pattern));
}

bool LikePattern::matchesOne(const Token& token, char32_t c) const
{
    switch (token.kind) {
    case Token::AnyOne:
        return true;
    case Token::Digit:
        return c >= U'0' && c <= U'9';
    case Token::Literal:
        return lowerAscii(c) == token.literal;
    case Token::Set: {
        const char32_t lower = lowerAscii(c);
        const char32_t upper = upperAscii(c);
        bool in = false;
        for (unsigned r = token.rangeBegin; r < token.rangeEnd && !in; ++r) {
            const Range& range = m_ranges[r];
            in = (c >= range.first && c <= range.last) || (lower >= range.first && lower <= range.last) ||
                 (upper >= range.first && upper <= range.last);
        }
        return in != token.negated;
    }
    case Token::AnyRun:
        break;
    }
    return false;
}

bool LikePattern::matches(std::u32string_view text) const
{
    // Every token but a star takes exactly one character, so backtracking to the last star is enough.
    constexpr std::size_t none = std::size_t(-1);
    std::size_t t = 0, p = 0;
    std::size_t starToken = none, starText = 0;
    const std::size_t n = m_tokens.size();
    while (t < text.size()) {
        if (p < n && m_tokens[p].kind == Token::AnyRun) {
            starToken = ++p;
            starText = t;
        } else if (p < n && matchesOne(m_tokens[p], text[t])) {
            ++p;
            ++t;
        } else if (starToken != none) {
            p = starToken;
            t = ++starText;
        } else {
            return false;
        }
    }
    while (p < n && m_tokens[p].kind == Token::AnyRun)
        ++p;
    return p == n;
}

bool LikePattern::matches(QStringView text) const
{
    return matches(toUtf32(text));
}

namespace {

// ASCII letters and digits as themselves, every other character as \Uxxxxxxxx.
QString regexCharacter(char32_t c)
{
    if ((c >= U'a' && c <= U'z') || (c >= U'A' && c <= U'Z') || (c >= U'0' && c <= U'9'))
        return QString(QChar(char16_t(c)));
    return u"\\U"_s + QString::number(uint(c), 16).rightJustified(8, u'0');
}

QString regexRange(char32_t first, char32_t last)
{
    return first == last ? regexCharacter(first) : regexCharacter(first) + u'-' + regexCharacter(last);
}

} // namespace

QString LikePattern::foldedRegularExpression() const
{
    QString regex = u"^"_s;
    for (const Token& token : m_tokens) {
        switch (token.kind) {
        case Token::AnyRun:
            regex += u".*"_s;
            break;
        case Token::AnyOne:
            regex += u'.';
            break;
        case Token::Digit:
            regex += u"[0-9]"_s;
            break;
        case Token::Literal:
            regex += regexCharacter(token.literal);
            break;
        case Token::Set: {
            if (token.rangeBegin == token.rangeEnd) { // [!] : any one character
                regex += u'.';
                break;
            }
            // A folded text holds no A-Z: the part of a range within A-Z is matched by its lower case.
            QString set = token.negated ? u"[^"_s : u"["_s;
            for (unsigned r = token.rangeBegin; r < token.rangeEnd; ++r) {
                const Range& range = m_ranges[r];
                set += regexRange(range.first, range.last);
                const char32_t first = std::max(range.first, U'A'), last = std::min(range.last, U'Z');
                if (first <= last)
                    set += regexRange(lowerAscii(first), lowerAscii(last));
            }
            regex += set + u']';
            break;
        }
        }
    }
    return regex + u'$';
}

std::optional<bool> likeMatches(QStringView pattern, QStringView text)
{
    const auto compiled = LikePattern::compile(pattern);
    if (!compiled)
        return std::nullopt;
    return compiled->matches(text);
}

QStringView likeLiteralPrefix(QStringView pattern)
{
    const auto literal = [](QChar c) {
        return c != u'*' && c != u'?' && c != u'#' && c != u'[' && c != QChar(0);
    };
    qsizetype end = 0;
    while (end < pattern.size() && literal(pattern[end]))
        ++end;
    return pattern.first(end);
}

} // namespace tolvinpt::db
