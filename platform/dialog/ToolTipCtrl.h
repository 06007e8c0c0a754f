#pragma once

#include "platform/dialog/Wnd.h"

#include <commctrl.h>

// Tips for the controls of a parent, shown when RelayEvent hands the mouse messages on.
// The texts are copied, may be of any length and break into lines; an empty text shows no tip.
class CToolTipCtrl : public CWnd
{
public:
    using CWnd::Create;
    bool Create(CWnd* parent, DWORD style = 0); // style TTS_...

    bool AddTool(HWND tool, const std::wstring& text);
    void UpdateTipText(HWND tool, const std::wstring& text); // nothing for a tool that was not added

    // Adds the tool, or changes its text where it is there already.
    void SetToolText(HWND tool, const std::wstring& text);

    bool HasTool(HWND tool) const;
    std::wstring GetText(HWND tool) const; // at most 4,095 characters

    void RelayEvent(const MSG& message) { SendMessage(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&message)); }

private:
    TTTOOLINFOW ToolOf(HWND tool) const;

    HWND m_hParent = nullptr;
};
