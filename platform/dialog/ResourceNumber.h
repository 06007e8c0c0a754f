#pragma once

#include <windows.h>

#include <cstdint>

// The decimal number that a resource text holds. The fallback stands for a text that is missing, holds no number or
// one below 1, or does not fit 31 bits.
std::int32_t LoadNumber(UINT textId, std::int32_t fallback);
