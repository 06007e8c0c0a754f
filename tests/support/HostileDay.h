#pragma once

#include "tests/support/HostileLines.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class CZPTLogBase;

// What a record must hold.
struct ExpectedRecord
{
    std::uint32_t icon = 0;
    std::vector<std::wstring> fields;
};

// What must become of a line, written a second time from what is asked of the class, plain and slow; nothing for a line
// that must be refused. Keeps what the class is said to keep from one line to the next.
using LogReference = std::function<std::optional<ExpectedRecord>(std::wstring_view line)>;

// Puts hostile lines into the log, which has just been made, and compares what becomes of each with the reference, up
// to the first difference. The lines are the same in each run: KESTRIX_SEED in the environment takes another
// seed, or "random" for a new one. The seed is printed.
void ExpectHostileDay(CZPTLogBase& log, const LogReference& reference, const LineShape& shape);
