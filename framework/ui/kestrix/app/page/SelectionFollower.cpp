#include "framework/ui/kestrix/app/page/SelectionFollower.h"

#include "framework/ui/kestrix/app/page/ShownLog.h"

namespace
{

bool IsArrow(const MSG& message)
{
    return message.wParam == VK_UP || message.wParam == VK_DOWN;
}

bool IsPressOrRelease(const MSG& message)
{
    switch (message.message)
    {
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_RBUTTONDOWN:
        return true;
    default:
        return false;
    }
}

} // namespace

// A button or a key that is let go elsewhere holds until the next press. A press that shows nothing in the end, such as
// one that is dragged away, is followed after all.
void CSelectionFollower::NoteInput(const MSG& message)
{
    if (!IsPressOrRelease(message))
    {
        return;
    }
    const bool isInList = message.hwnd == m_list.GetSafeHwnd();
    if (m_bHeld)
    {
        PostFollow();
    }
    m_bHeld = isInList && (message.message == WM_LBUTTONDOWN || (message.message == WM_KEYDOWN && IsArrow(message)));
    if (isInList && message.message == WM_KEYUP && IsArrow(message))
    {
        ShowNow();
    }
}

void CSelectionFollower::ShowNow()
{
    m_bHeld = false;
    m_log.ShowSelectedRecord();
}

void CSelectionFollower::NoteChange(const NMLISTVIEW& change)
{
    if ((change.uChanged & LVIF_STATE) != 0 && (change.uNewState & ~change.uOldState & LVIS_SELECTED) != 0)
    {
        PostFollow();
    }
}

void CSelectionFollower::PostFollow()
{
    m_bPosted = m_bPosted || CWindow(m_list.GetParent()).PostMessage(Message);
}

LRESULT CSelectionFollower::Follow()
{
    m_bPosted = false;
    if (!m_bHeld)
    {
        m_log.FollowSelection();
    }
    return 0;
}
