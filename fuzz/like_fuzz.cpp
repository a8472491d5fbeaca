// The Like matcher against a plain recursive one written apart from it, on patterns whose sets hold
// letters, digits and same-kind ranges only (other sets are left to the sanitizers); and the literal
// prefix that narrows a search to an index range: every text a pattern matches starts with it.
// Input: pattern and text, split at the first 0xFF byte.
#include "fuzz/fuzz_input.h"
#include "fuzz/require.h"
#include "platform/sql/jet_like.h"

#include <optional>
#include <string>
#include <vector>

namespace {

char32_t fold(char32_t c)
{
    return c >= U'A' && c <= U'Z' ? c + 32 : c;
}

bool alnum(char32_t c)
{
    return (c >= U'0' && c <= U'9') || (c >= U'a' && c <= U'z') || (c >= U'A' && c <= U'Z');
}

bool sameKind(char32_t a, char32_t b)
{
    const auto kind = [](char32_t c) { return c <= U'9' ? 0 : c <= U'Z' ? 1 : 2; };
    return kind(a) == kind(b);
}

// The set starting after '[' at `i`: its end and whether `c` is in it; nullopt for a set this reference
// leaves alone.
struct SetMatch
{
    std::size_t end;
    bool in;
};
std::optional<SetMatch> matchSet(const std::u32string& p, std::size_t i, char32_t c)
{
    const bool negated = i < p.size() && p[i] == U'!';
    std::size_t k = negated ? i + 1 : i;
    bool in = false;
    for (; k < p.size() && p[k] != U']'; ++k) {
        if (!alnum(p[k]))
            return std::nullopt;
        if (k + 2 < p.size() && p[k + 1] == U'-' && p[k + 2] != U']') {
            if (!alnum(p[k + 2]) || !sameKind(p[k], p[k + 2]) || p[k] > p[k + 2])
                return std::nullopt;
            in = in || (fold(c) >= fold(p[k]) && fold(c) <= fold(p[k + 2]));
            k += 2;
        } else {
            in = in || fold(c) == fold(p[k]);
        }
    }
    if (k >= p.size() || k == i || (negated && k == i + 1))
        return std::nullopt; // unclosed, empty or "[!]": not this reference's business
    return SetMatch{k + 1, negated ? !in : in};
}

// nullopt: the pattern has a construct the reference leaves alone. Memoised over (i, j), so any
// pattern costs at most pattern times text steps.
class Reference
{
public:
    Reference(std::u32string pattern, std::u32string text)
        : p(std::move(pattern)), t(std::move(text)), memo((p.size() + 1) * (t.size() + 1), Unknown)
    {
    }
    std::optional<bool> match(std::size_t i = 0, std::size_t j = 0)
    {
        signed char& known = memo[i * (t.size() + 1) + j];
        if (known == Unknown) {
            const std::optional<bool> result = step(i, j);
            known = result ? static_cast<signed char>(*result) : LeftAlone;
        }
        return known == LeftAlone ? std::nullopt : std::optional<bool>(known == 1);
    }

private:
    static constexpr signed char Unknown = -2, LeftAlone = -1;

    std::optional<bool> step(std::size_t i, std::size_t j)
    {
        if (i == p.size())
            return j == t.size();
        switch (p[i]) {
        case U'*': { // none of the text, or one character more
            const auto none = match(i + 1, j);
            if (!none || *none)
                return none;
            return j < t.size() ? match(i, j + 1) : std::optional<bool>(false);
        }
        case U'?':
            return j < t.size() ? match(i + 1, j + 1) : std::optional<bool>(false);
        case U'#':
            return j < t.size() && t[j] >= U'0' && t[j] <= U'9' ? match(i + 1, j + 1)
                                                                : std::optional<bool>(false);
        case U'[': {
            const auto set = matchSet(p, i + 1, j < t.size() ? t[j] : U'\0');
            if (!set)
                return std::nullopt;
            return j < t.size() && set->in ? match(set->end, j + 1) : std::optional<bool>(false);
        }
        default:
            return j < t.size() && fold(p[i]) == fold(t[j]) ? match(i + 1, j + 1)
                                                            : std::optional<bool>(false);
        }
    }

    std::u32string p, t;
    std::vector<signed char> memo;
};

QString folded(QStringView text)
{
    QString out = text.toString();
    for (QChar& c : out)
        c = QChar(char16_t(fold(c.unicode())));
    return out;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace tolvinpt::db;
    if (size > 1024)
        return 0; // long inputs add nothing but time
    const auto [pattern, text] = tolvinpt::fuzz::twoTexts(data, size);
    const std::optional<bool> matched = likeMatches(pattern, text);
    if (!matched)
        return 0;
    const std::optional<bool> expected = Reference(pattern.toStdU32String(), text.toStdU32String()).match();
    if (expected)
        FUZZ_REQUIRE(*matched == *expected);
    if (*matched)
        FUZZ_REQUIRE(folded(text).startsWith(folded(likeLiteralPrefix(pattern))));
    return 0;
}
