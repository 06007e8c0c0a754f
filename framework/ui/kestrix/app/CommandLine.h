#pragma once

#include <cstdint>
#include <optional>
#include <string>

// What the line of a program says that is to show a log: target %| log type %| local address %| log path %| unused %|
// number. Nothing is quoted or escaped.
struct CommandLine
{
    std::wstring target;
    std::wstring logType; // a command code
    std::wstring localAddress;
    std::wstring logPath;
    std::wstring number;
};

// The target of a line whose records come from the database.
inline constexpr wchar_t LocalTarget[] = L"LocalLog";

// The fields of a line, cut at its first five separators; what follows them is the number. Nothing when one is missing.
std::optional<CommandLine> CutCommandLine(const std::wstring& line);

// Whether a target is the local one, without regard to case.
bool IsLocalTarget(const std::wstring& target) noexcept;

// The internal log type of a command code, LogTypeNone for a code without a log. Text that is no number counts as 0.
std::uint32_t LogTypeOfCode(const std::wstring& text);
