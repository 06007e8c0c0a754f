#include "tests/bench/Timing.h"

#include <windows.h>

#include <algorithm>

namespace
{

double Milliseconds()
{
    LARGE_INTEGER frequency{};
    LARGE_INTEGER now{};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&now);
    return static_cast<double>(now.QuadPart) * 1000.0 / static_cast<double>(frequency.QuadPart);
}

} // namespace

std::vector<double> MedianTimes(const std::vector<TimedWork>& works, int rounds)
{
    std::vector<std::vector<double>> times(works.size());
    for (int round = 0; round < rounds; ++round)
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
        std::ranges::nth_element(all, all.begin() + rounds / 2);
        medians.push_back(all[rounds / 2]);
    }
    return medians;
}
