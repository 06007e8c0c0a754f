#include "framework/ui/kestrix/app/CommandLine.h"

#include "common/VdCommon/VdComn_Number.h"
#include "framework/ui/kestrix/logs/LogKinds.h"

#include <algorithm>
#include <cwchar>
#include <string_view>

namespace
{

constexpr std::wstring_view Separator = L"%|";

// A target is compared up to this length, more than the literal has: the whole field counts.
constexpr std::size_t TargetLimit = 18;

} // namespace

std::optional<CommandLine> CutCommandLine(const std::wstring& line)
{
    CommandLine cut;
    std::wstring unused;
    std::size_t start = 0;
    for (std::wstring* const field : {&cut.target, &cut.logType, &cut.localAddress, &cut.logPath, &unused})
    {
        const std::size_t found = line.find(Separator, start);
        if (found == line.npos)
        {
            return std::nullopt;
        }
        *field = line.substr(start, found - start);
        start = found + Separator.size();
    }
    cut.number = line.substr(start);
    return cut;
}

bool IsLocalTarget(const std::wstring& target) noexcept
{
    return ::_wcsnicmp(target.c_str(), LocalTarget, TargetLimit) == 0;
}

std::uint32_t LogTypeOfCode(const std::wstring& text)
{
    const auto kind = std::ranges::find(LogKinds(), VdCommon::WideToInteger(text), &LogKind::commandCode);
    return kind == LogKinds().end() ? LogTypeNone : kind->type;
}
