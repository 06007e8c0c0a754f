#pragma once

#include <cstddef>

// How many of so many lines or blocks a test takes: all of them, or a fiftieth in the debug build, where each block of
// memory has pages of its own and a process can have about thirty thousand of them.
constexpr std::size_t Scaled(std::size_t count)
{
#ifdef _GLIBCXX_DEBUG
    return count / 50;
#else
    return count;
#endif
}
