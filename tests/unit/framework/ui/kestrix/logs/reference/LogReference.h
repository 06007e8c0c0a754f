#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What a record must hold.
struct ExpectedRecord
{
    std::uint32_t icon = 0;
    std::vector<std::wstring> fields;
};

// What must become of a line, written a second time from what is asked of the class, plain and slow; nothing for a line
// that must be refused. Keeps what the class is said to keep from one line to the next.
using LogReference = std::function<std::optional<ExpectedRecord>(std::wstring_view line)>;
