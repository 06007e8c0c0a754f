#pragma once

#include <cstdint>

// The seed of a test that draws lots, printed: the same in each run, but KESTRIX_SEED in the environment takes another
// one, or "random" for a new one.
std::uint32_t Seed();
