#include "framework/ui/kestrix/app/FramedDialog.h"

#include "framework/ui/kestrix/app/HeadingLook.h"
#include "framework/ui/kestrix/controls/FlexBitmapButton.h"
#include "framework/ui/kestrix/controls/Scale.h"
#include "framework/ui/kestrix/controls/SkinColours.h"
#include "resource/resource.h"

namespace
{

constexpr COLORREF HoleColour = RGB(0, 255, 0); // of the caption buttons' pictures

constexpr int CaptionButtonSize = 28; // pixels; in the middle of the frame's top
constexpr int CaptionButtonTop = 4;

} // namespace

const MessageMap& CFramedDialog::Map()
{
    static constexpr auto rows = MessageRows(On::Message<WM_LBUTTONDOWN, &CFramedDialog::OnLButtonDown>);
    static constexpr MessageMap map{rows, &CBitmapDialog::Map};
    return map;
}

BOOL CFramedDialog::OnInitDialog()
{
    SetCornerRegion(IDB_CORNER_TOP_LEFT);
    const BOOL setFocus = CBitmapDialog::OnInitDialog();
    SetBackground(IDB_BACKGROUND);
    m_SolidBrush.CreateSolidBrush(SkinColour::Ground);
    return setFocus;
}

void CFramedDialog::SetHeading(CColorText& heading, const std::wstring& text)
{
    heading.SetText(text);
    heading.SetFontLook(HeadingLook());
    heading.SetTextColour(SkinColour::TitleText, COLOR_CAPTIONTEXT);
    heading.SetAlignment(CColorText::Horizontal::Left, CColorText::Vertical::Centre);
}

void CFramedDialog::SetCaptionButton(CFlexBitmapButton& button, UINT normal, UINT hot, UINT sign)
{
    RECT place = button.GetWindowRect();
    ScreenToClient(place);
    place.left = place.right - Scaled(CaptionButtonSize);
    place.top = Scaled(CaptionButtonTop);
    place.bottom = place.top + Scaled(CaptionButtonSize);
    button.MoveWindow(place);
    button.SetName(button.GetWindowText());
    button.SetKeyColour(HoleColour);
    button.SetCaptionSign(sign);
    button.SetBitmaps(normal, hot);
    button.SetOwnCursor(IDC_HAND_CURSOR);
}

void CFramedDialog::OnLButtonDown(UINT, POINT point)
{
    Default();
    PostMessage(WM_NCLBUTTONDOWN, HTCAPTION, MAKELPARAM(point.x, point.y));
}
