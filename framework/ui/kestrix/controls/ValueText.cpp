#include "framework/ui/kestrix/controls/ValueText.h"

#include "framework/ui/kestrix/controls/LabelClick.h"

namespace
{

struct Selection
{
    DWORD first = 0;
    DWORD end = 0;
};

Selection PlaceOfSelection(const CWindow& edit)
{
    Selection selection;
    edit.SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&selection.first), reinterpret_cast<LPARAM>(&selection.end));
    return selection;
}

} // namespace

std::wstring SelectionIn(const CWindow& edit)
{
    const Selection selection = PlaceOfSelection(edit);
    return edit.GetWindowText().substr(selection.first, selection.end - selection.first);
}

const MessageMap& CValueText::Map()
{
    static constexpr auto rows = MessageRows(
        On::Message<WM_PAINT, &CValueText::OnPaint>, On::Message<WM_SETTEXT, &CValueText::OnSetText>,
        On::Message<WM_SETFOCUS, &CValueText::OnSetFocus>, On::Message<WM_KILLFOCUS, &CValueText::OnKillFocus>,
        On::Message<WM_LBUTTONDOWN, &CValueText::OnLButtonDown>,
        On::Message<WM_LBUTTONDBLCLK, &CValueText::OnLButtonDblClk>,
        On::Message<WM_SETCURSOR, &CValueText::OnSetCursor>, On::Message<WM_NCHITTEST, &CValueText::OnNcHitTest>,
        On::Message<WM_CONTEXTMENU, &CValueText::OnContextMenu>);
    static constexpr MessageMap map{rows, &CClickText::Map};
    return map;
}

// The text stands where a label has it.
void CValueText::PreSubclassWindow()
{
    CClickText::PreSubclassWindow();
    SendMessage(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(0, 0));
}

void CValueText::SetTexts(const std::wstring& label, const std::wstring& whole)
{
    const bool isCut = !whole.empty() && whole != label;
    SetWindowText(isCut && IsOpen() ? whole : label);
    m_strLabel = isCut ? label : std::wstring();
    m_strWhole = isCut ? whole : std::wstring();
}

std::wstring CValueText::WholeText() const
{
    return m_strWhole.empty() ? GetWindowText() : m_strWhole;
}

std::wstring CValueText::TextToCopy() const
{
    const std::wstring selected = IsOpen() ? SelectionIn(*this) : std::wstring();
    return selected.empty() ? WholeText() : selected;
}

// As the system paints a label: its parent says with which colours and font.
void CValueText::OnPaint()
{
    if (IsOpen())
    {
        Default();
        return;
    }
    const CPaintDC dc(m_hWnd);
    const CSelectObject font(dc, GetFont());
    const auto brush = reinterpret_cast<HBRUSH>(::SendMessageW(GetParent(), WM_CTLCOLORSTATIC,
                                                               reinterpret_cast<WPARAM>(static_cast<HDC>(dc)),
                                                               reinterpret_cast<LPARAM>(m_hWnd)));
    RECT place = GetClientRect();
    ::FillRect(dc, &place, brush);
    const std::wstring text = GetWindowText();
    ::DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &place, m_nLabelFormat);
}

// A text from elsewhere is a whole one.
LRESULT CValueText::OnSetText(const wchar_t* text)
{
    m_strLabel.clear();
    m_strWhole.clear();
    return CClickText::OnSetText(text);
}

// Label and whole text change places.
void CValueText::FollowFocus()
{
    if (!m_strWhole.empty())
    {
        const std::wstring label = m_strLabel;
        const std::wstring whole = m_strWhole;
        SetTexts(label, whole);
    }
    Invalidate();
}

// The Tab key selects all of the text before.
void CValueText::OnSetFocus(HWND)
{
    const Selection selection = PlaceOfSelection(*this);
    const bool isAll = selection.first == 0 && selection.end != 0 && selection.end == GetWindowText().size();
    FollowFocus();
    if (isAll)
    {
        SendMessage(EM_SETSEL, 0, -1);
    }
    Default();
    if (IsClickable())
    {
        ::HideCaret(m_hWnd);
    }
}

void CValueText::OnKillFocus(HWND)
{
    Default();
    SendMessage(EM_SETSEL, 0, 0);
    FollowFocus();
}

void CValueText::OnLButtonDown(UINT, POINT)
{
    if (IsClickable())
    {
        SendLabelClick(*this);
        return;
    }
    Default();
}

void CValueText::OnLButtonDblClk(UINT, POINT)
{
    if (!IsClickable())
    {
        Default();
    }
}

BOOL CValueText::OnSetCursor(HWND, UINT, UINT)
{
    if (!IsClickable())
    {
        return static_cast<BOOL>(Default());
    }
    ::SetCursor(::LoadCursorW(nullptr, IDC_ARROW));
    return TRUE;
}

// A press beside a text is one on the dialog, as with any label.
LRESULT CValueText::OnNcHitTest(WPARAM, LPARAM)
{
    return IsClickable() || !GetWindowText().empty() ? Default() : HTTRANSPARENT;
}

void CValueText::OnContextMenu(HWND window, POINT point)
{
    ::SendMessageW(GetParent(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window), MAKELPARAM(point.x, point.y));
}
