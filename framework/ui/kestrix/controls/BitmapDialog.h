#pragma once

#include "platform/dialog/DialogFramework.h"

#include <map>
#include <string>

// The base of every dialog and page: it gives single controls a text colour and a font of their own, shows tool tips,
// and cannot be closed by Enter or Escape.
class CBitmapDialog : public CDialog
{
public:
    explicit CBitmapDialog(UINT templateId) : CDialog(templateId) {}

    BOOL OnInitDialog() override;
    BOOL PreTranslateMessage(MSG& message) override;

protected:
    static const MessageMap& Map();

    const MessageMap& GetMessageMap() const override { return Map(); }

    // The dialog's font with another weight, for one control; it lives as long as the dialog's window.
    void SetControlFont(UINT control, LONG weight, bool underlined = false);

    void SetTextColour(UINT control, COLORREF colour) { m_mapTextColour[control] = colour; }

    // Sets the tool tip of a control; an empty text takes it away.
    void SetControlToolTip(UINT control, const std::wstring& text);

    CBrush m_SolidBrush; // what controls are painted on; the dialog's default when there is none
    CToolTipCtrl m_ToolTip;

private:
    BOOL OnEraseBkgnd(HDC dc);
    HBRUSH OnCtlColor(HDC dc, HWND control, UINT kind);
    void OnDestroy();

    std::map<UINT, COLORREF> m_mapTextColour;
    std::map<UINT, CFont> m_mapFont;
};
