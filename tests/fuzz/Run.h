#pragma once

#include "tests/fuzz/Harness.h"

#include <chrono>
#include <cstdint>
#include <optional>

namespace Fuzz
{

// Reads the kept inputs of the harness, then new ones for this time, without one as many as the harness says, and
// prints how many it were. Up to the first finding, which is made small, told and left in the build folder: false. An
// input that crashes, or takes longer than any may, is left by the next run, and ends the program.
bool Run(const Harness& harness, std::uint32_t seed, std::optional<std::chrono::seconds> time);

} // namespace Fuzz
