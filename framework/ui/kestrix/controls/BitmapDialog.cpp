#include "framework/ui/kestrix/controls/BitmapDialog.h"

const MessageMap& CBitmapDialog::Map()
{
    static constexpr auto rows =
        MessageRows(On::Message<WM_ERASEBKGND, &CBitmapDialog::OnEraseBkgnd>, On::CtlColor<&CBitmapDialog::OnCtlColor>,
                    On::Message<WM_DESTROY, &CBitmapDialog::OnDestroy>);
    static constexpr MessageMap map{rows, &CDialog::Map};
    return map;
}

BOOL CBitmapDialog::OnInitDialog()
{
    const BOOL setFocus = CDialog::OnInitDialog();
    m_ToolTip.Create(this, TTS_ALWAYSTIP);
    return setFocus;
}

BOOL CBitmapDialog::PreTranslateMessage(MSG& message)
{
    if (m_ToolTip.GetSafeHwnd() != nullptr)
    {
        m_ToolTip.RelayEvent(message);
    }
    if (message.message == WM_KEYDOWN && (message.wParam == VK_RETURN || message.wParam == VK_ESCAPE))
    {
        return TRUE;
    }
    return CDialog::PreTranslateMessage(message);
}

void CBitmapDialog::SetControlFont(UINT control, LONG weight, bool underlined)
{
    LOGFONTW font{};
    if (GetObjectW(GetFont(), sizeof font, &font) == 0)
    {
        return;
    }
    font.lfWeight = weight;
    font.lfUnderline = underlined;
    CFont& own = m_mapFont[control];
    own.CreateFontIndirect(font);
    CWindow(GetDlgItem(static_cast<int>(control))).SetFont(own);
}

void CBitmapDialog::SetControlToolTip(UINT control, const std::wstring& text)
{
    if (m_ToolTip.GetSafeHwnd() != nullptr)
    {
        m_ToolTip.SetToolText(GetDlgItem(control), text);
    }
}

BOOL CBitmapDialog::OnEraseBkgnd(HDC dc)
{
    if (m_SolidBrush.GetSafeHandle() == nullptr)
    {
        return static_cast<BOOL>(Default());
    }
    const RECT client = GetClientRect();
    FillRect(dc, &client, m_SolidBrush);
    return TRUE;
}

HBRUSH CBitmapDialog::OnCtlColor(HDC dc, HWND control, UINT)
{
    const auto brush = reinterpret_cast<HBRUSH>(Default());
    const auto id = static_cast<UINT>(::GetDlgCtrlID(control));
    if (const auto colour = m_mapTextColour.find(id); colour != m_mapTextColour.end())
    {
        SetTextColor(dc, colour->second);
    }
    if (m_SolidBrush.GetSafeHandle() == nullptr)
    {
        return brush;
    }
    SetBkMode(dc, TRANSPARENT);
    return m_SolidBrush;
}

void CBitmapDialog::OnDestroy()
{
    m_mapFont.clear();
    m_mapTextColour.clear();
    Default();
}
