#include "framework/ui/kestrix/controls/BitmapDialog.h"

#include "framework/ui/kestrix/controls/CornerRegion.h"

#include <iterator>

namespace
{

constexpr wchar_t TrackBarClass[] = L"msctls_trackbar32";
constexpr DWORD ButtonKindMask = 0xFFFF; // the bits of a style that belong to its window class

// What a control's background is.
enum class Ground
{
    Base,        // the base's brush
    Transparent, // the dialog shows between the letters; the base's brush
    Hollow,      // the dialog shows through all of it
    HollowBase,  // the same, with the base's colours
    Solid,       // the solid brush
};

bool IsTrackBar(HWND control)
{
    wchar_t name[std::size(TrackBarClass) + 1]{}; // a longer name is cut and so differs
    ::GetClassNameW(control, name, static_cast<int>(std::size(name)));
    return ::lstrcmpiW(name, TrackBarClass) == 0;
}

// The dialog shows through these two however it is painted.
bool IsGroupOrCheckBox(HWND button)
{
    const DWORD kind = CWindow(button).GetStyle() & ButtonKindMask;
    return kind == BS_GROUPBOX || kind == BS_AUTOCHECKBOX;
}

Ground GroundOf(HWND control, UINT kind, bool solid)
{
    switch (kind)
    {
    case CTLCOLOR_MSGBOX:
    case CTLCOLOR_EDIT:
        return solid ? Ground::Solid : Ground::Transparent;
    case CTLCOLOR_BTN:
        return solid && !IsGroupOrCheckBox(control) ? Ground::Solid : Ground::Hollow;
    case CTLCOLOR_STATIC:
        if (IsTrackBar(control))
        {
            return Ground::Base;
        }
        return solid ? Ground::Solid : Ground::HollowBase;
    default:
        return Ground::Base;
    }
}

} // namespace

CBitmapDialog::CBitmapDialog(UINT templateId) : CDialog(templateId)
{
    m_HollowBrush.Attach(static_cast<HBRUSH>(GetStockObject(HOLLOW_BRUSH)));
}

const MessageMap& CBitmapDialog::Map()
{
    static constexpr auto rows =
        MessageRows(On::Message<WM_ERASEBKGND, &CBitmapDialog::OnEraseBkgnd>, On::CtlColor<&CBitmapDialog::OnCtlColor>,
                    On::Message<WM_QUERYNEWPALETTE, &CBitmapDialog::OnQueryNewPalette>,
                    On::Message<WM_PALETTECHANGED, &CBitmapDialog::OnPaletteChanged>,
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

void CBitmapDialog::SetCornerRegion(UINT)
{
    const RECT client = GetClientRect();
    CRgn shape = MakeCornerRegion({client.right, client.bottom});
    if (::SetWindowRgn(m_hWnd, shape, TRUE))
    {
        static_cast<void>(shape.Detach()); // the window owns it now
    }
}

LRESULT CBitmapDialog::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    m_FocusRing.Follow(*this, message, wParam, lParam);
    return CDialog::WindowProc(message, wParam, lParam);
}

// The base sets colours in the context, so that the control's own come after it.
HBRUSH CBitmapDialog::OnCtlColor(HDC dc, HWND control, UINT kind)
{
    if (!ShowsBackground())
    {
        return reinterpret_cast<HBRUSH>(Default());
    }
    const Ground ground = GroundOf(control, kind, m_bSolidBackground);
    HBRUSH brush = ground == Ground::Solid ? m_SolidBrush : m_HollowBrush;
    if (ground == Ground::Base || ground == Ground::Transparent || ground == Ground::HollowBase)
    {
        const auto base = reinterpret_cast<HBRUSH>(Default());
        brush = ground == Ground::HollowBase ? brush : base;
    }
    UseControlLook(dc, control);
    if (ground == Ground::Transparent || ground == Ground::Hollow || ground == Ground::HollowBase)
    {
        SetBkMode(dc, TRANSPARENT);
    }
    return brush;
}

void CBitmapDialog::UseControlLook(HDC dc, HWND control) const
{
    const auto id = static_cast<UINT>(::GetDlgCtrlID(control));
    if (const auto colour = m_mapTextColour.find(id); colour != m_mapTextColour.end())
    {
        SetTextColor(dc, colour->second);
    }
    if (const auto font = m_mapFont.find(id); font != m_mapFont.end())
    {
        SelectObject(dc, font->second);
    }
}

// Whether an entry of the screen's palette changed.
bool CBitmapDialog::RealiseBackgroundPalette(bool inBackground)
{
    const CClientDC dc(m_hWnd);
    const CSelectPalette selected(dc, *m_bmpBackground.GetPalette(), inBackground);
    const UINT changed = RealizePalette(dc);
    if (changed == 0 || changed == GDI_ERROR)
    {
        return false;
    }
    Invalidate();
    return true;
}

BOOL CBitmapDialog::OnQueryNewPalette()
{
    if (m_bmpBackground.GetPalette() == nullptr)
    {
        return static_cast<BOOL>(Default());
    }
    return RealiseBackgroundPalette(false);
}

void CBitmapDialog::OnPaletteChanged(HWND cause)
{
    if (m_bmpBackground.GetPalette() == nullptr)
    {
        Default();
        return;
    }
    if (cause != m_hWnd && !::IsChild(m_hWnd, cause))
    {
        RealiseBackgroundPalette(true);
    }
}

void CBitmapDialog::OnDestroy()
{
    m_mapFont.clear();
    m_mapTextColour.clear();
    Default();
}
