#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

// The numbers of the log types. 4 and 10 were never given a log.
enum LogType : std::uint32_t
{
    LogTypeVirus = 0,
    LogTypeUpdate = 1,
    LogTypeUrlFilter = 2,
    LogTypeFirewall = 3,
    LogTypeTsc = 5,
    LogTypePrivacy = 6,
    LogTypePhishing = 7,
    LogTypeVa = 8,
    LogTypeSpyware = 9,
    LogTypeVst = 11,
    LogTypeSystemTuner = 12,
    LogTypeScan = 13,
    LogTypeSkippedTask = 14,
    LogTypeNone = 15,
};

// How the detail pane shows its first value. A link opens the page about what its text names.
enum class FirstInfo
{
    Link,
    Text,
    TextOnly, // the link behind the text is disabled
    TallText, // a text as high as three rows
};

// The line of the report that counts the records of a log.
enum class ReportLine
{
    None,
    Virus,
    SuspiciousChange,
    Spyware,
    Web,
    DataPrevention,
};

// Which fields of a record an export writes.
struct ExportFields
{
    static constexpr std::size_t None = static_cast<std::size_t>(-1);

    std::span<const std::size_t> only{}; // these, in this order; empty: all
    std::size_t leftOut = None;          // all but this one
};

// What is known of a kind of log and is not behaviour.
struct LogKind
{
    std::uint32_t type = LogTypeNone;
    std::wstring_view extension{};  // of its daily files: three capital letters
    std::uint32_t querySubType = 0; // its number in database queries
    std::int32_t commandCode = 0;   // its number in the command line, and in an order to purge

    UINT choice = 0;       // text of its entry in the choice of logs
    UINT messageTitle = 0; // text of the title of its messages
    UINT exportTitle = 0;  // text of the first field of its exports

    UINT help = 0;             // number of its help topic in a form without a report; 0: the first topic
    UINT helpBesideReport = 0; // the same in a form with a report

    FirstInfo firstInfo = FirstInfo::Text;
    bool hasWholeInfo = false; // a click on the third value, which may be cut, shows its whole text
    bool hasAllowRule = false; // a record can be made an allow rule
    int lastColumn = 2;        // the highest list column that is served
    ExportFields exportFields{};
    ReportLine reportLine = ReportLine::None;
    const wchar_t* installedValue = nullptr; // the installer's value without which the log is no choice
};

// All kinds, in the order of the choice of logs.
std::span<const LogKind> LogKinds() noexcept;

// The kind of a type; null for a number that has no log.
const LogKind* FindLogKind(std::uint32_t type) noexcept;

// The text of the title of a type's exports; the general one for a number that has no log.
UINT ExportTitle(std::uint32_t type) noexcept;
