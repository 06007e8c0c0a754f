#include "framework/ui/kestrix/app/page/DetailPane.h"

#include "framework/ui/kestrix/logs/LogKinds.h"
#include "resource/resource.h"

#include <algorithm>
#include <limits>

namespace
{

// The rows. A link shares the place of the first value, a text; the kind of the log decides.
constexpr UINT InfoLabels[CLogInfoPage::InfoRows] = {
    IDC_INFO_LABEL_0, IDC_INFO_LABEL_1, IDC_INFO_LABEL_2, IDC_INFO_LABEL_3,
    IDC_INFO_LABEL_4, IDC_INFO_LABEL_5, IDC_INFO_LABEL_6,
};
constexpr UINT InfoValues[CLogInfoPage::InfoRows] = {
    IDC_INFO_VALUE_0_TEXT, IDC_INFO_VALUE_1, IDC_INFO_VALUE_2, IDC_INFO_VALUE_3,
    IDC_INFO_VALUE_4,      IDC_INFO_VALUE_5, IDC_INFO_VALUE_6,
};

constexpr UINT InBold[] = {
    IDC_INFO_LABEL_0, IDC_INFO_LABEL_1, IDC_INFO_LABEL_2, IDC_INFO_LABEL_3, IDC_INFO_LABEL_4,
    IDC_INFO_LABEL_5, IDC_INFO_LABEL_6, IDC_SPARE_EDIT,   IDC_ALLOW_LABEL,
};

constexpr std::size_t WholeRow = 2; // whose value may open
constexpr int TallRows = 3;

constexpr UINT OneLine = DT_SINGLELINE | DT_NOPREFIX | DT_EXTERNALLEADING;
constexpr int WipingBlanks = 64;

// Further down by so many pixels, and no further than a coordinate can say.
LONG Lowered(LONG bottom, int pixels)
{
    return static_cast<LONG>(std::min<long long>(std::numeric_limits<LONG>::max(), 0LL + bottom + pixels));
}

// Draws a text with the font of a control onto its surface, in a rectangle in its coordinates; not over what the user
// selects in.
void DrawOnto(const CWindow& control, const std::wstring& text, RECT rectangle, UINT format)
{
    if (::GetFocus() == control)
    {
        return;
    }
    const CClientDC dc(control);
    const CSelectObject font(dc, reinterpret_cast<HFONT>(control.SendMessage(WM_GETFONT)));
    ::DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &rectangle, format);
}

} // namespace

std::span<const UINT> CDetailPane::BoldControls()
{
    return InBold;
}

void CDetailPane::DoDataExchange(CDataExchange& exchange)
{
    m_page = CWindow(exchange.m_hDlg);
    DDX_Control(exchange, IDC_INFO_VALUE_0_LINK, m_InfoLink);
    for (std::size_t row = 0; row < InfoRows; ++row)
    {
        DDX_Control(exchange, static_cast<int>(InfoValues[row]), m_arrValue[row]);
    }
    m_arrValue[0].SetLabelFormat(DT_WORDBREAK | DT_EXPANDTABS | DT_NOPREFIX);
    m_arrValue[WholeRow].SetLabelFormat(CValueText::OneLine | DT_PATH_ELLIPSIS);
}

void CDetailPane::Start()
{
    m_pKind = nullptr;
    m_rcInfoValue = Item(IDC_INFO_VALUE_0_TEXT).GetWindowRect();
    Item(IDC_INFO_VALUE_0_LINK).EnableWindow();
    for (const UINT hidden : {IDC_INFO_VALUE_0_TEXT, IDC_INFO_VALUE_0_LINK, IDC_ALLOW, IDC_ALLOW_LABEL})
    {
        Show(hidden, false);
    }
}

void CDetailPane::SetKind(const LogKind& kind)
{
    m_pKind = &kind;
    ShowFirst(kind.firstInfo);
    m_InfoLink.SetClickable(kind.firstInfo == FirstInfo::Link);
    m_arrValue[WholeRow].SetClickable(kind.hasWholeInfo);
}

void CDetailPane::ShowFirst(FirstInfo how)
{
    switch (how)
    {
    case FirstInfo::Link:
        Show(IDC_INFO_VALUE_0_LINK, true);
        return;
    case FirstInfo::Text:
        break;
    case FirstInfo::TextOnly:
        Item(IDC_INFO_VALUE_0_LINK).EnableWindow(false);
        break;
    case FirstInfo::TallText:
        Show(IDC_INFO_VALUE_0_LINK, false);
        SizeFirstText(TallRows);
        break;
    }
    Show(IDC_INFO_VALUE_0_TEXT, true);
}

void CDetailPane::RemoveKind()
{
    m_pKind = nullptr;
    Item(IDC_INFO_VALUE_0_LINK).EnableWindow();
    Show(IDC_INFO_VALUE_0_LINK, false);
    SizeFirstText(1);
    Show(IDC_INFO_VALUE_0_TEXT, false);
}

// As wide as in the template and this many rows high. Its place stays: that of the template was one on the screen, and
// the form may have moved since.
void CDetailPane::SizeFirstText(int rows)
{
    RECT size = m_rcInfoValue;
    size.bottom = size.top + rows * (m_rcInfoValue.bottom - m_rcInfoValue.top);
    Item(IDC_INFO_VALUE_0_TEXT).SetWindowPos(nullptr, size, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CDetailPane::Clear()
{
    ClearValues();
    ShowThirdValue();
}

void CDetailPane::ClearValues()
{
    SetLink({}, {});
    for (std::size_t row = 0; row < InfoRows; ++row)
    {
        SetValue(row, {}, {});
    }
    ShowAllowRule(false);
}

std::wstring CDetailPane::LinkText() const
{
    return Item(IDC_INFO_VALUE_0_LINK).GetWindowText();
}

bool CDetailPane::HasWholeText() const
{
    return m_pKind != nullptr && m_pKind->hasWholeInfo;
}

void CDetailPane::ShowShortText()
{
    if (HasWholeText())
    {
        ShowThirdValue();
    }
}

void CDetailPane::ShowThirdValue()
{
    Show(IDC_INFO_VALUE_2, true);
    Show(IDC_INFO_VALUE_2_WHOLE, false);
}

// The keyboard goes to the whole text when the value that opens it has it.
void CDetailPane::ShowWholeText(const std::wstring& text)
{
    if (!HasWholeText())
    {
        return;
    }
    const bool byKeyboard = ::GetFocus() == m_arrValue[WholeRow].GetSafeHwnd();
    Show(IDC_INFO_VALUE_2, false);
    Item(IDC_INFO_VALUE_2_WHOLE).SetWindowText(text);
    Show(IDC_INFO_VALUE_2_WHOLE, true);
    if (byKeyboard)
    {
        Item(IDC_INFO_VALUE_2_WHOLE).SetFocus();
    }
}

void CDetailPane::DisableAllow()
{
    Item(IDC_ALLOW).EnableWindow(false);
}

bool CDetailPane::HasAllowRule() const
{
    return m_pKind != nullptr && m_pKind->hasAllowRule;
}

bool CDetailPane::CanAllow() const
{
    return HasAllowRule() && Shows(IDC_ALLOW) && Item(IDC_ALLOW).IsWindowEnabled();
}

bool CDetailPane::IsValue(HWND window) const
{
    return window != nullptr &&
           (window == m_InfoLink || window == Item(IDC_INFO_VALUE_2_WHOLE) ||
            std::ranges::any_of(m_arrValue, [&](const CValueText& value) { return window == value; }));
}

// The first value may be a link.
std::wstring CDetailPane::ShownValue(std::size_t row) const
{
    return row == 0 && Shows(IDC_INFO_VALUE_0_LINK) ? LinkText() : m_arrValue[row].WholeText();
}

bool CDetailPane::HasValues() const
{
    std::size_t row = 0;
    while (row < InfoRows && ShownValue(row).empty())
    {
        ++row;
    }
    return row != InfoRows;
}

std::wstring CDetailPane::AllText() const
{
    std::wstring text;
    for (std::size_t row = 0; row < InfoRows && HasValues(); ++row)
    {
        if (Shows(InfoLabels[row]))
        {
            text += Item(InfoLabels[row]).GetWindowText() + L' ' + ShownValue(row) + L"\r\n";
        }
    }
    return text;
}

std::wstring CDetailPane::TextToCopy() const
{
    const HWND focus = ::GetFocus();
    if (focus == m_InfoLink)
    {
        return LinkText();
    }
    if (focus == Item(IDC_INFO_VALUE_2_WHOLE))
    {
        const std::wstring selected = SelectionIn(CWindow(focus));
        return selected.empty() ? CWindow(focus).GetWindowText() : selected;
    }
    const auto value = std::ranges::find(m_arrValue, focus, &CWindow::GetSafeHwnd);
    return value != m_arrValue.end() ? value->TextToCopy() : std::wstring();
}

void CDetailPane::SetInfoRow(std::size_t row, const std::wstring& caption, bool visible)
{
    const UINT value = row == 0 ? IDC_INFO_VALUE_0_LINK : InfoValues[row];
    Item(InfoLabels[row]).SetWindowText(caption);
    Item(value).SetWindowText({});
    Show(InfoLabels[row], visible);
    Show(value, visible);
}

void CDetailPane::SetInfoText(std::size_t row, const std::wstring& text, const std::wstring& toolTip)
{
    SetValue(row, text, toolTip);
    if (row == 0)
    {
        Show(IDC_INFO_VALUE_0_TEXT, true);
        Show(IDC_INFO_VALUE_0_LINK, false);
    }
}

void CDetailPane::SetInfoLink(const std::wstring& text, const std::wstring& toolTip)
{
    SetLink(text, toolTip);
    Show(IDC_INFO_VALUE_0_TEXT, false);
    Show(IDC_INFO_VALUE_0_LINK, true);
}

// The text is set as well, since a drawn one goes with the next painting and is no text for a screen reader.
void CDetailPane::DrawInfoText(std::size_t row, const std::wstring& text, const std::wstring& toolTip)
{
    SetValue(row, text, toolTip);
    const CWindow& value = m_arrValue[row];
    ::UpdateWindow(value);
    DrawOnto(value, std::wstring(WipingBlanks, L' '), value.GetClientRect(), OneLine);
    DrawOnto(value, text, value.GetClientRect(), OneLine | DT_WORD_ELLIPSIS);
}

void CDetailPane::DrawTallInfo(const std::wstring& text, int pixels)
{
    Show(IDC_INFO_VALUE_0_LINK, false);
    const CWindow value = Item(IDC_INFO_VALUE_0_TEXT);
    ::UpdateWindow(value);
    RECT rectangle = value.GetClientRect();
    rectangle.bottom = Lowered(rectangle.bottom, pixels);
    DrawOnto(value, text, rectangle, DT_WORDBREAK);
    SetValue(0, text, {});
}

void CDetailPane::ShowAllowRule(bool show)
{
    Show(IDC_ALLOW, show);
    Show(IDC_ALLOW_LABEL, show);
    if (show)
    {
        Item(IDC_ALLOW).EnableWindow();
    }
}

// The tip has all of a text that is shown cut.
void CDetailPane::SetValue(std::size_t row, const std::wstring& text, const std::wstring& toolTip)
{
    m_arrValue[row].SetTexts(text, toolTip);
    m_ToolTip.SetToolText(m_arrValue[row], toolTip);
}

void CDetailPane::SetLink(const std::wstring& text, const std::wstring& toolTip)
{
    m_InfoLink.SetWindowText(text);
    m_ToolTip.SetToolText(m_InfoLink, toolTip);
}

void CDetailPane::Show(UINT control, bool show)
{
    Item(control).ShowWindow(show ? SW_SHOW : SW_HIDE);
}
