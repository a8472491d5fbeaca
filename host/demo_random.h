#pragma once

#include <cstdint>
#include <random>
#include <span>

namespace tolvinpt::host {

// Deterministic choices for the demo data. std::mt19937's sequence is fixed by the standard; the
// distributions of <random> are not, so the reductions are written out here.
class DemoRandom
{
public:
    explicit DemoRandom(std::uint32_t seed) : m_engine(seed) {}

    // 0 <= result < bound
    int below(int bound) { return static_cast<int>(m_engine() % static_cast<std::uint32_t>(bound)); }
    // low <= result <= high
    int between(int low, int high) { return low + below(high - low + 1); }
    // true with the given chance in percent
    bool percent(int chance) { return below(100) < chance; }
    template <typename T> const T& pick(std::span<const T> items)
    {
        return items[static_cast<std::size_t>(below(static_cast<int>(items.size())))];
    }
    // An index chosen by weight.
    int weighted(std::span<const int> weights)
    {
        int total = 0;
        for (int w : weights)
            total += w;
        int roll = below(total);
        for (std::size_t i = 0; i < weights.size(); ++i) {
            if (roll < weights[i])
                return static_cast<int>(i);
            roll -= weights[i];
        }
        return 0;
    }

private:
    std::mt19937 m_engine;
};

} // namespace tolvinpt::host
