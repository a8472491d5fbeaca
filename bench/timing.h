#pragma once

// Timing for the benchmarks that compare our code with a baseline in the same run.

#include <algorithm>
#include <chrono>
#include <vector>

namespace tolvinpt::bench {

inline double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0.0 : values[values.size() / 2];
}

// Milliseconds that `work` takes.
template <typename Work> double millisecondsOf(Work&& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - start;
    return elapsed.count();
}

struct Medians
{
    double ours, raw;
};

// Each side is called with a vector to append its samples to: once to warm the caches, then `rounds`
// times, the two taking turns at going first. The medians of all samples of each side.
template <typename Ours, typename Raw> Medians alternate(int rounds, Ours&& ours, Raw&& raw)
{
    std::vector<double> oursSamples, rawSamples;
    ours(oursSamples);
    raw(rawSamples);
    oursSamples.clear();
    rawSamples.clear();
    for (int round = 0; round < rounds; ++round) {
        if (round % 2 == 0) {
            ours(oursSamples);
            raw(rawSamples);
        } else {
            raw(rawSamples);
            ours(oursSamples);
        }
    }
    return {median(oursSamples), median(rawSamples)};
}

} // namespace tolvinpt::bench
