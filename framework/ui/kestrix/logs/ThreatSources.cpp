#include "framework/ui/kestrix/logs/ThreatSources.h"

#include "platform/dialog/ResourceText.h"
#include "resource/resource.h"

#include <algorithm>
#include <iterator>

namespace ThreatSources
{

namespace
{

constexpr std::wstring_view NoText = L"  "; // what unknown codes show

struct SourceRow
{
    std::uint32_t source;
    UINT text;
    UINT typeOfValue0; // the type of the object by its code
    UINT typeOfValue1;
    UINT typeOfOthers; // 0: no text
};

constexpr SourceRow Sources[] = {
    {MailIn, IDS_SOURCE_MAIL_IN, IDS_TYPE_MAIL, IDS_TYPE_MAIL, IDS_TYPE_MAIL},
    {MailOut, IDS_SOURCE_MAIL_OUT, IDS_TYPE_MAIL, IDS_TYPE_MAIL, IDS_TYPE_MAIL},
    {Web, IDS_SOURCE_WEB, IDS_TYPE_WEB, IDS_TYPE_WEB, IDS_TYPE_WEB},
    {RealTime, IDS_SOURCE_REAL_TIME, IDS_TYPE_0, IDS_TYPE_1, 0},
    {Manual, IDS_SOURCE_MANUAL, IDS_TYPE_0, IDS_TYPE_1, 0},
    {Scheduled, IDS_SOURCE_SCHEDULED, IDS_TYPE_0, IDS_TYPE_1, 0},
};

} // namespace

std::wstring_view SourceText(std::uint32_t source)
{
    const auto row = std::ranges::find(Sources, source, &SourceRow::source);
    return row == std::end(Sources) ? NoText : std::wstring_view(LoadText(row->text));
}

std::wstring_view TypeText(std::uint32_t source, std::uint32_t type)
{
    const auto row = std::ranges::find(Sources, source, &SourceRow::source);
    if (row == std::end(Sources))
    {
        return NoText;
    }
    const UINT text = type == 0 ? row->typeOfValue0 : type == 1 ? row->typeOfValue1 : row->typeOfOthers;
    return text == 0 ? NoText : std::wstring_view(LoadText(text));
}

} // namespace ThreatSources
