#pragma once

#include <cstdint>
#include <memory>

class CZPTLogBase;

// A new log object of a type; null for a type that has no class.
std::unique_ptr<CZPTLogBase> CreateLog(std::uint32_t type);
