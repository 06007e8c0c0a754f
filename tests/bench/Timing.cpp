#include "tests/bench/Timing.h"

#include <windows.h>

#include <algorithm>

namespace
{

constexpr int Rounds = 5;

double Milliseconds()
{
    LARGE_INTEGER frequency{};
    LARGE_INTEGER now{};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&now);
    return static_cast<double>(now.QuadPart) * 1000.0 / static_cast<double>(frequency.QuadPart);
}

} // namespace

std::vector<double> MedianTimes(const std::vector<TimedWork>& works)
{
    std::vector<std::vector<double>> times(works.size());
    for (int round = 0; round < Rounds; ++round)
    {
        for (std::size_t i = 0; i < works.size(); ++i)
        {
            const double start = Milliseconds();
            works[i].work();
            times[i].push_back(Milliseconds() - start);
            works[i].after();
        }
    }
    std::vector<double> medians;
    for (std::vector<double>& all : times)
    {
        std::ranges::nth_element(all, all.begin() + Rounds / 2);
        medians.push_back(all[Rounds / 2]);
    }
    return medians;
}
