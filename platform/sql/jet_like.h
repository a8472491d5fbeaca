#pragma once

#include <QString>
#include <QStringView>

#include <optional>
#include <string_view>
#include <vector>

namespace tolvinpt::db {

// A pattern of the Like operator as the delivery data has always been searched with it:
//   *       any run of characters, also none        ?      any one character
//   #       one digit 0-9                           [abc]  one character of the set
//   [a-z]   one character of the range              [!ab]  one character not in the set
//   [*] [?] [#] [[]  the character itself; ] outside a set is itself; [] matches nothing (zero length).
// Letters compare without regard to case, folding ASCII letters only: the same rule as text equality in
// the database (COLLATE NOCASE), so a pattern without wildcards matches exactly what '=' matches.
class LikePattern
{
public:
    // nullopt for an invalid pattern: a [ without its ], or a descending range such as [z-a].
    static std::optional<LikePattern> compile(std::u32string_view pattern);
    static std::optional<LikePattern> compile(QStringView pattern);

    bool matches(std::u32string_view text) const;
    bool matches(QStringView text) const;

    // The same pattern as a POSIX regular expression (PostgreSQL's advanced flavour) over text whose
    // ASCII letters are folded to lower case; anchored at both ends. Every character but the wildcards is
    // written as an escape, so no text of the operator's can act as regular-expression syntax.
    QString foldedRegularExpression() const;

private:
    struct Range
    {
        char32_t first;
        char32_t last;
    };
    struct Token
    {
        enum Kind { AnyRun, AnyOne, Digit, Literal, Set } kind;
        char32_t literal = 0;
        bool negated = false;
        // Set: m_ranges[rangeBegin, rangeEnd)
        unsigned rangeBegin = 0;
        unsigned rangeEnd = 0;
    };

    bool matchesOne(const Token& token, char32_t c) const;

    std::vector<Token> m_tokens;
    std::vector<Range> m_ranges;
};

// The characters before the pattern's first wildcard or set: every text it matches starts with them
// (letter case aside). Stops at a NUL too, which SQLite's text collations do not compare past.
QStringView likeLiteralPrefix(QStringView pattern);

// One-off match; nullopt for an invalid pattern.
std::optional<bool> likeMatches(QStringView pattern, QStringView text);

} // namespace tolvinpt::db
