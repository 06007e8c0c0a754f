#include "framework/ui/kestrix/logs/LogKinds.h"

#include "resource/resource.h"

#include <algorithm>

namespace
{

// Of a phishing record everything but the number of its kind, of a firewall record everything but the number of its
// direction. The labels of the two classes match this.
constexpr std::size_t PhishingFields[] = {0, 2, 3, 4, 5};
constexpr std::size_t FirewallDirection = 3;

constexpr LogKind Kinds[] = {
    {.type = LogTypeVirus,
     .extension = L"VLG",
     .querySubType = 2,
     .commandCode = 1,
     .choice = IDS_CHOICE_VIRUS,
     .messageTitle = IDS_TITLE_VIRUS,
     .exportTitle = IDS_TITLE_VIRUS,
     .help = 211,
     .helpBesideReport = 316,
     .firstInfo = FirstInfo::Link,
     .hasWholeInfo = true,
     .reportLine = ReportLine::Virus},
    {.type = LogTypeSpyware,
     .extension = L"SPG",
     .querySubType = 3,
     .commandCode = 8,
     .choice = IDS_CHOICE_SPYWARE,
     .messageTitle = IDS_TITLE_SPYWARE,
     .exportTitle = IDS_TITLE_SPYWARE,
     .help = 265,
     .helpBesideReport = 312,
     .firstInfo = FirstInfo::Link,
     .hasWholeInfo = true,
     .reportLine = ReportLine::Spyware},
    {.type = LogTypeUpdate,
     .extension = L"UPG",
     .querySubType = 11,
     .commandCode = 0,
     .choice = IDS_TITLE_UPDATE,
     .messageTitle = IDS_TITLE_UPDATE,
     .exportTitle = IDS_TITLE_UPDATE,
     .help = 210,
     .helpBesideReport = 315},
    {.type = LogTypeFirewall,
     .extension = L"PFG",
     .querySubType = 6,
     .commandCode = 3,
     .choice = IDS_TITLE_FIREWALL,
     .messageTitle = IDS_TITLE_FIREWALL,
     .exportTitle = IDS_TITLE_FIREWALL,
     .help = 213,
     .helpBesideReport = 309,
     .hasAllowRule = true,
     .lastColumn = 5,
     .exportFields = {.leftOut = FirewallDirection},
     .installedValue = L"FirewallAP"},
    {.type = LogTypePhishing,
     .extension = L"HLG",
     .querySubType = 4,
     .commandCode = 10,
     .choice = IDS_TITLE_PHISHING,
     .messageTitle = IDS_TITLE_PHISHING,
     .exportTitle = IDS_TITLE_PHISHING,
     .help = 232,
     .helpBesideReport = 310,
     .firstInfo = FirstInfo::TallText,
     .exportFields = {.only = PhishingFields}},
    {.type = LogTypeUrlFilter,
     .extension = L"UFG",
     .querySubType = 5,
     .commandCode = 4,
     .choice = IDS_TITLE_URL_FILTER,
     .messageTitle = IDS_TITLE_URL_FILTER,
     .exportTitle = IDS_TITLE_URL_FILTER,
     .help = 212,
     .helpBesideReport = 308,
     .lastColumn = 3,
     .reportLine = ReportLine::Web},
    {.type = LogTypeTsc,
     .extension = L"PTG",
     .querySubType = 7,
     .commandCode = 2,
     .choice = IDS_TITLE_TSC,
     .messageTitle = IDS_TITLE_TSC,
     .exportTitle = IDS_TITLE_TSC,
     .help = 230,
     .helpBesideReport = 313,
     .firstInfo = FirstInfo::Link},
    {.type = LogTypePrivacy,
     .extension = L"PPG",
     .querySubType = 9,
     .commandCode = 5,
     .choice = IDS_TITLE_PRIVACY,
     .messageTitle = IDS_TITLE_PRIVACY,
     .exportTitle = IDS_TITLE_PRIVACY,
     .help = 231,
     .helpBesideReport = 307,
     .firstInfo = FirstInfo::TextOnly,
     .reportLine = ReportLine::DataPrevention},
    {.type = LogTypeVa,
     .extension = L"VAG",
     .querySubType = 8,
     .commandCode = 7,
     .choice = IDS_CHOICE_VA,
     .messageTitle = IDS_TITLE_VA,
     .exportTitle = IDS_TITLE_VA,
     .help = 237,
     .helpBesideReport = 317},
    {.type = LogTypeVst,
     .extension = L"SCG",
     .querySubType = 10,
     .commandCode = 11,
     .choice = IDS_TITLE_VST,
     .messageTitle = IDS_TITLE_VST,
     .exportTitle = IDS_TITLE_OF_ANY_LOG,
     .help = 217,
     .helpBesideReport = 314,
     .hasWholeInfo = true,
     .reportLine = ReportLine::SuspiciousChange},
    {.type = LogTypeSystemTuner,
     .extension = L"STC",
     .querySubType = 13,
     .commandCode = 12,
     .choice = IDS_TITLE_SYSTEM_TUNER,
     .messageTitle = IDS_TITLE_TSC, // shared with that log
     .exportTitle = IDS_TITLE_SYSTEM_TUNER,
     .help = 272},
    {.type = LogTypeScan,
     .extension = L"SCI",
     .querySubType = 12,
     .commandCode = 13,
     .choice = IDS_TITLE_SCAN,
     .messageTitle = IDS_TITLE_SCAN,
     .exportTitle = IDS_TITLE_SCAN,
     .help = 299},
    {.type = LogTypeSkippedTask,
     .extension = L"SKP",
     .querySubType = 14,
     .commandCode = 14,
     .choice = IDS_TITLE_SKIPPED_TASK,
     .messageTitle = IDS_TITLE_SKIPPED_TASK,
     .exportTitle = IDS_TITLE_SKIPPED_TASK,
     .help = 311},
};

} // namespace

std::span<const LogKind> LogKinds() noexcept
{
    return Kinds;
}

const LogKind* FindLogKind(std::uint32_t type) noexcept
{
    const auto found = std::ranges::find(Kinds, type, &LogKind::type);
    return found == std::end(Kinds) ? nullptr : found;
}

UINT ExportTitle(std::uint32_t type) noexcept
{
    const LogKind* const kind = FindLogKind(type);
    return kind == nullptr ? IDS_TITLE_OF_ANY_LOG : kind->exportTitle;
}
