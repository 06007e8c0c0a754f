#pragma once

#include <windows.h>

#include <cstdint>

// The number of the help topic about the viewer page with this log; 0, the first topic, for a type that has none.
// logOnly: the form has no report, whose presence changes the numbers.
UINT HelpNumberOfLog(std::uint32_t logType, bool logOnly) noexcept;

// The number of the help topic about the report page.
inline constexpr UINT HelpNumberOfReport = 241;

// Shows a topic of the suite's help file, number 0 its first one. Nothing happens where there is no help.
void ShowHelpTopic(UINT number);
