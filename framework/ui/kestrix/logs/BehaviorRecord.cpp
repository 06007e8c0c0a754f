#include "framework/ui/kestrix/logs/BehaviorRecord.h"

#include "common/VdCommon/VdComn_FormatText.h"
#include "common/VdCommon/VdComn_Number.h"
#include "framework/ui/kestrix/logs/CodeTexts.h"
#include "framework/ui/kestrix/logs/TokenReaders.h"
#include "platform/dialog/ResourceText.h"
#include "resource/resource.h"

namespace
{

constexpr CodeText Kinds[] = {
    {1, IDS_BEHAVIOR_PROGRAM_START}, {2, IDS_BEHAVIOR_FILE},     {4, IDS_BEHAVIOR_REGISTRY}, {8, IDS_BEHAVIOR_DRIVER},
    {16, IDS_BEHAVIOR_SERVICE},      {32, IDS_BEHAVIOR_BROWSER}, {64, IDS_BEHAVIOR_MEMORY},
};
static_assert(IsSorted(Kinds));

constexpr std::uint32_t OneTarget = 1; // a later token names it

constexpr CodeText TargetCounts[] = {{0, IDS_BEHAVIOR_NO_TARGET}, {2, IDS_BEHAVIOR_SEVERAL_TARGETS}};
static_assert(IsSorted(TargetCounts));

constexpr CodeText Outcomes[] = {{1, IDS_BEHAVIOR_BLOCKED}, {2, IDS_BEHAVIOR_ALLOWED}, {4, IDS_BEHAVIOR_LOGGED}};
static_assert(IsSorted(Outcomes));

constexpr std::size_t FieldsBeforeTarget = 4;

void AppendTarget(std::wstring_view target, LogRec& record)
{
    if (target.empty())
    {
        record.AppendLasting(LoadText(IDS_BEHAVIOR_NO_TARGET));
        return;
    }
    record.Append(VdCommon::String::FormatText(LoadText(IDS_BEHAVIOR_TARGET), {std::wstring(target)}));
}

} // namespace

void TakeSource(std::wstring_view token, LogRec& record, std::uint32_t& source, std::uint32_t& otherSource)
{
    source = VdCommon::WideToUnsigned(token, 0);
    if (source == BehaviorSource)
    {
        record.AppendLasting(LoadText(IDS_SUSPICIOUS_BEHAVIOR));
    }
    else
    {
        otherSource = source;
        record.AppendLasting({});
    }
}

bool AppendBehaviorToken(std::size_t index, std::wstring_view token, LogRec& record)
{
    switch (index)
    {
    case 4:
        record.AppendLasting(TextOfCode(Kinds, CodeOf(token), IDS_BEHAVIOR_UNKNOWN));
        return false;
    case 8:
        record.Append(token);
        return false;
    case 9:
        if (const std::uint32_t count = CodeOf(token); count != OneTarget)
        {
            record.AppendLasting(TextOfCode(TargetCounts, count, IDS_BEHAVIOR_UNKNOWN));
        }
        return false;
    case 11:
        if (record.strData.size() == FieldsBeforeTarget)
        {
            AppendTarget(token, record);
        }
        return false;
    case 12:
        record.AppendLasting(TextOfCode(Outcomes, CodeOf(token), IDS_BEHAVIOR_UNKNOWN));
        return true;
    default:
        return false;
    }
}
