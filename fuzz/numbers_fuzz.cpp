// The strict number reader and the display formats against an exact reference on digit strings, written
// apart from Decimal: the same grammar, one half-to-even rounding at 28 significant digits and 28
// decimals, the same texts. The lenient reader agrees with the strict one wherever the strict one reads.
// Input: the first byte chooses the decimals of the formats (0 to 28), the rest is the text.
#include "fuzz/fuzz_input.h"
#include "fuzz/require.h"
#include "platform/values/number_text.h"

#include <optional>
#include <string>

namespace {

// ±digits / 10^scale; digits is never empty.
struct Exact
{
    bool negative = false;
    std::string digits;
    int scale = 0;
};

bool isDigit(char32_t c)
{
    return c >= u'0' && c <= u'9';
}
bool isBlank(char32_t c)
{
    return c == u' ' || c == u'\t';
}

std::optional<Exact> parseStrict(const std::u32string& text)
{
    std::size_t i = 0;
    const auto at = [&](std::size_t k) { return k < text.size() ? text[k] : U'\0'; };
    while (isBlank(at(i)))
        ++i;
    Exact value;
    if (at(i) == U'+' || at(i) == U'-')
        value.negative = at(i++) == U'-';
    bool integerPart = false;
    while (isDigit(at(i)) || (at(i) == U',' && integerPart && isDigit(at(i + 1)))) {
        if (at(i) != U',') {
            value.digits += char(at(i));
            integerPart = true;
        }
        ++i;
    }
    if (at(i) == U'.') {
        ++i;
        while (isDigit(at(i))) {
            value.digits += char(at(i++));
            ++value.scale;
        }
    }
    while (isBlank(at(i)))
        ++i;
    if (i != text.size() || value.digits.empty())
        return std::nullopt;
    return value;
}

// Rounded half to even so that at most `keep` decimals remain (keep may be negative).
void roundTo(Exact& value, int keep)
{
    if (value.scale <= keep)
        return;
    const std::size_t drop = std::size_t(value.scale - keep);
    value.digits.insert(0, drop + 1, '0'); // room for the carry and for dropping past the first digit
    const std::string dropped = value.digits.substr(value.digits.size() - drop);
    value.digits.resize(value.digits.size() - drop);
    value.scale = keep;
    const bool restZero = dropped.find_first_not_of('0', 1) == std::string::npos;
    const bool up =
        dropped[0] > '5' || (dropped[0] == '5' && (!restZero || (value.digits.back() - '0') % 2 == 1));
    for (std::size_t k = value.digits.size(); up && k-- > 0;) {
        value.digits[k] = value.digits[k] == '9' ? '0' : char(value.digits[k] + 1);
        if (value.digits[k] != '0')
            break;
    }
}

// Without leading zeros, trailing decimal zeros and negative zero.
void normalise(Exact& value)
{
    while (value.scale > 0 && value.digits.back() == '0') {
        value.digits.pop_back();
        --value.scale;
        if (value.digits.empty())
            value.digits = "0";
    }
    const std::size_t first = value.digits.find_first_not_of('0');
    value.digits = first == std::string::npos ? "0" : value.digits.substr(first);
    if (value.digits == "0")
        value.negative = false;
}

int integerDigits(const Exact& value)
{
    return std::max(0, int(value.digits.size()) - value.scale);
}

int significantDigits(const Exact& value)
{
    const std::size_t first = value.digits.find_first_not_of('0');
    return first == std::string::npos ? 0 : int(value.digits.size() - first);
}

// What the strict reader must give: nullopt for other text and beyond 28 integer digits.
std::optional<Exact> expectedValue(const std::u32string& text)
{
    auto value = parseStrict(text);
    if (!value)
        return std::nullopt;
    roundTo(*value, std::min(28, value->scale - std::max(0, significantDigits(*value) - 28)));
    normalise(*value);
    if (integerDigits(*value) > 28)
        return std::nullopt;
    return value;
}

std::string textOf(Exact value, int decimals, bool fixed)
{
    roundTo(value, decimals);
    if (!fixed)
        normalise(value);
    value.digits.insert(0, std::size_t(std::max(0, value.scale + 1 - int(value.digits.size()))), '0');
    std::string integer = value.digits.substr(0, value.digits.size() - std::size_t(value.scale));
    std::string fraction = value.digits.substr(integer.size());
    if (fixed)
        fraction.append(std::size_t(decimals - int(fraction.size())), '0');
    const std::size_t first = integer.find_first_not_of('0');
    integer = first == std::string::npos ? "0" : integer.substr(first);
    const bool zero = integer == "0" && fraction.find_first_not_of('0') == std::string::npos;
    return (value.negative && !zero ? "-" : "") + integer + (fraction.empty() ? "" : "." + fraction);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace tolvinpt;
    if (size == 0)
        return 0;
    const int decimals = data[0] % 29;
    const QString text = fuzz::latin1Text(data + 1, size - 1);
    const std::u32string text32 = text.toStdU32String();
    const std::optional<Decimal> read = strictDecimal(text);
    const std::optional<Exact> expected = expectedValue(text32);
    FUZZ_REQUIRE(read.has_value() == expected.has_value());
    const Decimal lenient = leadingNumber(text);
    if (!read)
        return 0;
    FUZZ_REQUIRE(read->toString().toStdString() == textOf(*expected, 28, false));
    FUZZ_REQUIRE(formatNumber(*read, decimals).toStdString() == textOf(*expected, decimals, false));
    FUZZ_REQUIRE(formatFixed(*read, decimals).toStdString() == textOf(*expected, decimals, true));
    FUZZ_REQUIRE(Decimal::fromString(read->toString()) == read);
    if (!text.contains(u','))
        FUZZ_REQUIRE(lenient == *read);
    return 0;
}
