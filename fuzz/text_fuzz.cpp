// Code page 932 widths and the width conversions on any text, lone surrogates and NUL included.
#include "fuzz/fuzz_input.h"
#include "fuzz/require.h"
#include "platform/values/text.h"

#include <QList>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace tolvinpt;
    const QString text = fuzz::utf16Text(data, size);
    const int bytes = cp932ByteLength(text);
    // One or two bytes a character; a surrogate pair is one character.
    FUZZ_REQUIRE(bytes >= text.toUcs4().size() && bytes <= 2 * text.size());
    const QString half = toHalfWidth(text), full = toFullWidth(text);
    FUZZ_REQUIRE(toHalfWidth(half) == half);
    FUZZ_REQUIRE(toFullWidth(full) == full);
    FUZZ_REQUIRE(cp932ByteLength(half) <= 2 * half.size() && cp932ByteLength(full) <= 2 * full.size());
    const QString upper = toUpperCase(text);
    FUZZ_REQUIRE(toUpperCase(upper) == upper);
    FUZZ_REQUIRE(rightTrim(rightTrim(text)) == rightTrim(text) && trimBlanks(text).size() <= text.size());
    return 0;
}
