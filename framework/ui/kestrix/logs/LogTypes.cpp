#include "framework/ui/kestrix/logs/LogTypes.h"

#include "resource/resource.h"

#include <algorithm>

namespace
{

constexpr LogTypeInfo Types[] = {
    {LogTypeVirus, L"VLG", 2, IDS_TITLE_VIRUS},
    {LogTypeUpdate, L"UPG", 11, IDS_TITLE_UPDATE},
    {LogTypeFirewall, L"PFG", 6, IDS_TITLE_FIREWALL},
    {LogTypeUrlFilter, L"UFG", 5, IDS_TITLE_URL_FILTER},
    {LogTypePrivacy, L"PPG", 9, IDS_TITLE_PRIVACY},
    {LogTypeTsc, L"PTG", 7, IDS_TITLE_TSC},
    {LogTypeVa, L"VAG", 8, IDS_TITLE_VA},
    {LogTypeSpyware, L"SPG", 3, IDS_TITLE_SPYWARE},
    {LogTypePhishing, L"HLG", 4, IDS_TITLE_PHISHING},
    {LogTypeVst, L"SCG", 10, IDS_TITLE_OF_ANY_LOG},
    {LogTypeSystemTuner, L"STC", 13, IDS_TITLE_SYSTEM_TUNER},
    {LogTypeScan, L"SCI", 12, IDS_TITLE_SCAN},
    {LogTypeSkippedTask, L"SKP", 14, IDS_TITLE_SKIPPED_TASK},
};

} // namespace

std::span<const LogTypeInfo> LogTypes() noexcept
{
    return Types;
}

const LogTypeInfo* FindLogType(std::uint32_t type) noexcept
{
    const auto found = std::ranges::find(Types, type, &LogTypeInfo::type);
    return found == std::end(Types) ? nullptr : found;
}

UINT ExportTitle(std::uint32_t type) noexcept
{
    const LogTypeInfo* const info = FindLogType(type);
    return info == nullptr ? IDS_TITLE_OF_ANY_LOG : info->exportTitle;
}
