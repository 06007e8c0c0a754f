#pragma once

#include "framework/ui/kestrix/logs/LogRec.h"

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>

// A code in a log line and the text of the language file that it means.
struct CodeText
{
    std::uint32_t code;
    UINT text;
};

// Whether a table can be searched; asserted beside each table.
constexpr bool IsSorted(std::span<const CodeText> table)
{
    return std::ranges::adjacent_find(table, std::ranges::greater_equal{}, &CodeText::code) == table.end();
}

// The text of a code in a sorted table; of a code that is not there the text `other`, or no text when that is 0. Like
// all texts of the language file it outlives the records.
std::wstring_view TextOfCode(std::span<const CodeText> table, std::uint32_t code, UINT other = 0);

// Gives the record the text as its next field. False, and the record is as it was, for a code that is not there.
bool AppendTextOfCode(std::span<const CodeText> table, std::uint32_t code, LogRec& record);
