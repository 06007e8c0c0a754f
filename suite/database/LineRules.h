#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace EventLog
{

struct LogKind;

// What is wrong with a line of a daily file of the kind by the rules of suite/lines.tsv, as the rest of a sentence that
// names the line; nothing when the log can read it. A record of the database is such a line as well.
std::optional<std::wstring> FaultOfLine(const LogKind& kind, std::wstring_view line);

} // namespace EventLog
