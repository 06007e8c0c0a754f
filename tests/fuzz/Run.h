#pragma once

#include "tests/fuzz/Harness.h"

#include <chrono>
#include <cstdint>
#include <optional>

namespace Fuzz
{

struct Plan
{
    std::uint32_t seed;
    std::optional<std::chrono::seconds> time{}; // nothing: as many inputs as the harness says
};

// Reads the kept inputs of the harness, then new ones, and prints how many it were. Up to the first finding, which is
// made small, told and left in the build folder: false. An input that crashes, or takes longer than any may, is left
// and told in the same way, and ends the program.
bool Run(const Harness& harness, const Plan& plan);

} // namespace Fuzz
