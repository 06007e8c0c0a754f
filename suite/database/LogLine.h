#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace EventLog
{

struct LineForm;
struct LogKind;

// The tokens of a line, views into it.
std::vector<std::wstring_view> TokensOf(std::wstring_view line);

// The form that a line with these tokens should have, by its source; null when lines of the kind have no such source.
const LineForm* FormOfLine(const LogKind& kind, const std::vector<std::wstring_view>& tokens);

// The database form of a line of a daily file. Lines of some logs have more tokens there, such as a detail or an end
// mark, which a line of a file may lack; they are added, empty. All other lines stay as they are, and so does a line
// that lacks more than that, which no reader takes in either form. A kind is a query sub type.
std::wstring DatabaseForm(std::uint32_t kind, std::wstring_view line);

// The time of day that a line of the kind carries, as HHMMSS; 0, the first moment of its day, when it carries none.
std::uint32_t TimeOfLine(std::uint32_t kind, std::wstring_view line);

} // namespace EventLog
