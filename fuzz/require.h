#pragma once

#include <cstdio>
#include <cstdlib>

// A broken rule is a finding: say which and stop, so the fuzzer keeps the input.
#define FUZZ_REQUIRE(condition)                                                                    \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            std::fprintf(stderr, "broken: %s (%s:%d)\n", #condition, __FILE__, __LINE__);          \
            std::abort();                                                                          \
        }                                                                                          \
    } while (false)
