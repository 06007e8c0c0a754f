#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

struct ScanResult
{
    std::uint64_t lines = 0;
    std::size_t longest = 0; // characters, with the line feed
};

// The bare scan of a file of UTF-16 lines, with which the readers are compared. Throws std::runtime_error.
ScanResult ScanFile(const std::wstring& path);
