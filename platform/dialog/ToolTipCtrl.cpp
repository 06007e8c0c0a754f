#include "platform/dialog/ToolTipCtrl.h"

#include <array>

namespace
{

constexpr std::size_t LongestTipText = 4096; // with the terminator; what the control copies out at most
constexpr int WidestTip = 480;               // pixels; any width makes the control break lines

} // namespace

bool CToolTipCtrl::Create(CWnd* parent, DWORD style)
{
    m_hParent = parent != nullptr ? parent->GetSafeHwnd() : nullptr;
    if (!CWnd::Create(TOOLTIPS_CLASSW, {}, WS_POPUP | style, {}, m_hParent, 0, WS_EX_TOPMOST))
    {
        return false;
    }
    SendMessage(TTM_SETMAXTIPWIDTH, 0, WidestTip);
    return true;
}

TTTOOLINFOW CToolTipCtrl::ToolOf(HWND tool) const
{
    TTTOOLINFOW info{};
    info.cbSize = sizeof info;
    info.uFlags = TTF_IDISHWND;
    info.hwnd = m_hParent;
    info.uId = reinterpret_cast<UINT_PTR>(tool);
    return info;
}

bool CToolTipCtrl::AddTool(HWND tool, const std::wstring& text)
{
    TTTOOLINFOW info = ToolOf(tool);
    info.lpszText = const_cast<wchar_t*>(text.c_str());
    return tool != nullptr && SendMessage(TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&info));
}

void CToolTipCtrl::UpdateTipText(HWND tool, const std::wstring& text)
{
    TTTOOLINFOW info = ToolOf(tool);
    info.lpszText = const_cast<wchar_t*>(text.c_str());
    SendMessage(TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&info));
}

void CToolTipCtrl::SetToolText(HWND tool, const std::wstring& text)
{
    if (HasTool(tool))
    {
        UpdateTipText(tool, text);
    }
    else
    {
        AddTool(tool, text);
    }
}

bool CToolTipCtrl::HasTool(HWND tool) const
{
    TTTOOLINFOW info = ToolOf(tool);
    return SendMessage(TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&info));
}

std::wstring CToolTipCtrl::GetText(HWND tool) const
{
    std::array<wchar_t, LongestTipText> text{};
    TTTOOLINFOW info = ToolOf(tool);
    info.lpszText = text.data();
    SendMessage(TTM_GETTEXTW, text.size(), reinterpret_cast<LPARAM>(&info));
    return text.data();
}
