#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace EventLog
{

// The database form of a line of a daily file. Virus, spyware, URL filter and clean-up lines have one more token there,
// their detail or end mark, which a line of a file may lack; it is added, empty. All other lines stay as they are, and
// so does a line that lacks more than that, which no reader takes in either form. A kind is a query sub type.
std::wstring DatabaseForm(std::uint32_t kind, std::wstring_view line);

// The time of day that a line of the kind carries, as HHMMSS; 0, the first moment of its day, when it carries none.
std::uint32_t TimeOfLine(std::uint32_t kind, std::wstring_view line);

} // namespace EventLog
