#pragma once

#include "platform/dialog/DialogFramework.h"

#include <vector>

struct TabColours
{
    COLORREF background = RGB(255, 255, 255);
    COLORREF border = RGB(0, 0, 0); // of the frame and the tabs
    COLORREF shadow = RGB(180, 180, 180);
    COLORREF highlight = RGB(255, 255, 255);
    COLORREF normalText = RGB(0, 0, 0);
    COLORREF selectedText = RGB(255, 0, 0);
};

// A strip of tabs that are drawn from two bitmaps, above the frame of its pages. A strip with one tab shows the frame
// alone.
class CCuteTabCtrl : public CTabCtrl
{
public:
    // Bitmaps of the resource module, stretched over a tab. Without a bitmap only the outline of a tab is drawn.
    void SetBitmaps(UINT normal, UINT selected);

    // The fonts of the tabs. Until they are set the tabs have the font of the parent. False, and the tabs keep the
    // fonts they have, when the system refuses one.
    bool SetFonts(const LOGFONTW& normal, const LOGFONTW& selected);

    void SetColours(const TabColours& colours);
    void SetCornerRadius(int radius); // in pixels at 96 dots an inch

    // Shown over the tabs; null for the usual one. The cursor stays the caller's.
    void SetCursor(HCURSOR cursor) { m_hCursor = cursor; }

protected:
    static const MessageMap& Map();

    const MessageMap& GetMessageMap() const override { return Map(); }

    void PreSubclassWindow() override;

private:
    void OnPaint();
    BOOL OnSetCursor(HWND window, UINT hitTest, UINT mouse);
    void OnSetFocus(HWND other);
    void OnKillFocus(HWND other);
    void OnEnable(bool enabled);

    void TakeFocus(bool focus);
    HWND ScrollButtons() const;
    std::vector<RECT> DrawnTabs() const;
    void DrawTabs(HDC dc, const RECT& client) const;
    void DrawFrame(HDC dc, const RECT& client, const std::vector<RECT>& tabs) const;
    void DrawTab(HDC dc, const RECT& tab, bool selected, LONG previousRight) const;
    void DrawTabText(HDC dc, const RECT& tab, int index, bool selected) const;

    TabColours m_colours;
    UINT m_nNormalBitmap = 0;
    UINT m_nSelectedBitmap = 0;
    int m_nCornerRadius = 5;
    HCURSOR m_hCursor = nullptr;
    CFont m_fontNormal;
    CFont m_fontSelected;
    bool m_bFocus = false;
};
