#include "framework/ui/kestrix/app/page/SearchNote.h"

#include "framework/ui/kestrix/app/HeadingLook.h"
#include "framework/ui/kestrix/controls/SkinColours.h"
#include "resource/resource.h"

namespace
{

// What newer headers call EVENT_OBJECT_LIVEREGIONCHANGED: the text of a part that tells of itself has changed.
constexpr DWORD LiveRegionChanged = 0x8019;

} // namespace

void CSearchNote::DoDataExchange(CDataExchange& exchange)
{
    DDX_Control(exchange, IDC_SEARCH_NOTE, *this);
}

void CSearchNote::Start()
{
    SetFontLook(HeadingLook());
    SetBackground(SkinColour::ListHeading, true);
    SetAlignment(Horizontal::Right, Vertical::Centre);
}

// Some screen readers listen to the one event, some to the other.
void CSearchNote::Tell(const std::wstring& text)
{
    SetText(text);
    ShowWindow(SW_SHOWNA);
    for (const DWORD event : {LiveRegionChanged, DWORD{EVENT_SYSTEM_ALERT}})
    {
        ::NotifyWinEvent(event, m_hWnd, OBJID_CLIENT, CHILDID_SELF);
    }
}

void CSearchNote::Clear()
{
    ShowWindow(SW_HIDE);
    SetText({});
}
