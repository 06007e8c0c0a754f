#pragma once

#include <functional>
#include <vector>

// Work to be timed, and what follows each run without being timed.
struct TimedWork
{
    std::function<void()> work;
    std::function<void()> after = [] {};
};

// Runs all works in turn, an odd number of rounds, and gives the median time of each in milliseconds.
std::vector<double> MedianTimes(const std::vector<TimedWork>& works, int rounds = 5);
