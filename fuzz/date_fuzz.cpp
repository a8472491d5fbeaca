// The date reader: whatever it accepts is a calendar day that it writes back as it read.
#include "fuzz/fuzz_input.h"
#include "fuzz/require.h"
#include "platform/values/date.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace tolvinpt;
    const QString text = fuzz::latin1Text(data, size);
    if (const auto date = fromYmd(text)) {
        FUZZ_REQUIRE(date->isValid() && toYmd(*date) == text);
        FUZZ_REQUIRE(fromYmd(toYmd(*date)) == date);
        FUZZ_REQUIRE(isCalendarDate(date->year(), date->month(), date->day()));
    }
    return 0;
}
