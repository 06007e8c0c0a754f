#pragma once

#include <cstdint>

namespace Samples
{

// A repeatable stream of numbers: the same seed gives the same numbers with every compiler and library,
// which the distributions of the standard library do not promise. The constants are those of SplitMix64.
class Random
{
public:
    explicit Random(std::uint64_t seed) : m_nState(seed) {}

    std::uint64_t Next()
    {
        m_nState += 0x9E3779B97F4A7C15;
        std::uint64_t mixed = m_nState;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
        return mixed ^ (mixed >> 31);
    }

    // A number from 0 up to but not including `bound`; 0 for a bound of 0.
    std::uint32_t Below(std::uint32_t bound) { return static_cast<std::uint32_t>(((Next() >> 32) * bound) >> 32); }

    bool Chance(std::uint32_t percent) { return Below(100) < percent; }

private:
    std::uint64_t m_nState;
};

} // namespace Samples
