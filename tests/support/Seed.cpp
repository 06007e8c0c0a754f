#include "tests/support/Seed.h"

#include <cstdlib>
#include <iostream>
#include <random>
#include <string_view>

std::uint32_t Seed()
{
    constexpr std::uint32_t UsualSeed = 20261122;
    const char* const given = std::getenv("KESTRIX_SEED");
    const std::string_view wanted = given == nullptr ? std::string_view() : given;
    const std::uint32_t seed = wanted.empty()       ? UsualSeed
                               : wanted == "random" ? std::random_device()()
                                                    : std::strtoul(given, nullptr, 10);
    std::cout << "KESTRIX_SEED=" << seed << '\n';
    return seed;
}
