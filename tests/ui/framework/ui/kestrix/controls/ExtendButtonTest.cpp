#include "framework/ui/kestrix/controls/ExtendButton.h"

#include "tests/support/HighContrast.h"
#include "tests/ui/framework/ui/kestrix/controls/ButtonStage.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

using Button = OpenButton<CExtendButton>;

constexpr COLORREF White = RGB(255, 255, 255);
constexpr COLORREF NormalMiddle = RGB(0xb0, 0xc8, 0xe8);
constexpr COLORREF NormalTopLeft = RGB(0x20, 0x30, 0x40);
constexpr COLORREF HotMiddle = RGB(0xff, 0xe0, 0xb0);
constexpr COLORREF LockedMiddle = RGB(0xc0, 0xc0, 0xc0);
constexpr COLORREF Blue = RGB(0, 0, 0xc0);
constexpr COLORREF Orange = RGB(0xe0, 0x80, 0);
constexpr COLORREF Pink = RGB(0xff, 0x80, 0xc0);
constexpr COLORREF TextColour = RGB(200, 0, 100);
constexpr POINT Middle{ButtonSize.cx / 2, ButtonSize.cy / 2};

COLORREF MiddleOf(const Picture& picture)
{
    return picture.At(Middle.x, Middle.y);
}

class ExtendButtonTest : public testing::Test
{
protected:
    void MakeButton(const std::wstring& text = {}, DWORD style = 0, DWORD exStyle = 0)
    {
        ASSERT_TRUE(m_button.Make(m_stage, text, style, exStyle));
        m_button.SetTextColour(TextColour);
        m_button.SetFrame(false);
    }

    void GiveFaces()
    {
        ASSERT_TRUE(m_button.SetNormalBitmap(IDB_NINE_NORMAL));
        ASSERT_TRUE(m_button.SetHotBitmap(IDB_NINE_HOT));
        ASSERT_TRUE(m_button.SetLockedBitmap(IDB_NINE_LOCKED));
    }

    Picture TextAt(const RECT& place, UINT format, COLORREF colour = TextColour) const
    {
        return TextOf(m_button, m_stage, place, format, colour);
    }

    ButtonStage m_stage;
    Button m_button;
};

} // namespace

TEST_F(ExtendButtonTest, WithoutAFaceTheBackgroundColourFillsIt)
{
    MakeButton();
    m_button.SetBackgroundColour(RGB(4, 5, 6));
    EXPECT_EQ(PictureInState(m_button, 0), Picture(ButtonSize.cx, ButtonSize.cy, RGB(4, 5, 6)));
}

TEST_F(ExtendButtonTest, ATransparentButtonWithoutAFacePaintsNothing)
{
    MakeButton({}, 0, WS_EX_TRANSPARENT);
    EXPECT_EQ(PictureInState(m_button, 0, RGB(9, 8, 7)), Picture(ButtonSize.cx, ButtonSize.cy, RGB(9, 8, 7)));
}

TEST_F(ExtendButtonTest, TheFaceIsStretchedInNinePartsToTheButtonsSize)
{
    MakeButton();
    GiveFaces();
    const Picture picture = PictureInState(m_button, 0);
    EXPECT_EQ(PlaceOf(picture, NormalTopLeft), L"0 0 13 13");
    EXPECT_EQ(PlaceOf(picture, RGB(0x20, 0x40, 0x30)), L"67 0 80 13");
    EXPECT_EQ(PlaceOf(picture, NormalMiddle), L"13 13 67 17");
    EXPECT_EQ(PlaceOf(picture, RGB(0x40, 0x40, 0x20)), L"67 17 80 30");
}

TEST_F(ExtendButtonTest, AnotherBorderCutsTheFaceElsewhere)
{
    MakeButton();
    m_button.SetBorder(5);
    ASSERT_TRUE(m_button.SetNormalBitmap(IDB_NINE_NORMAL));
    const Picture picture = PictureInState(m_button, 0);
    EXPECT_EQ(picture.At(4, 4), NormalTopLeft);
    EXPECT_EQ(PlaceOf(picture, NormalTopLeft).substr(0, 4), L"0 0 ");
    EXPECT_NE(PlaceOf(picture, NormalTopLeft), L"0 0 13 13");
}

TEST_F(ExtendButtonTest, AButtonThatChangesItsSizeNeedsItsFaceAgain)
{
    MakeButton();
    ASSERT_TRUE(m_button.SetNormalBitmap(IDB_NINE_NORMAL));
    m_button.MoveWindow({0, 0, 120, 40});
    EXPECT_EQ(PlaceOf(PictureInState(m_button, 0), NormalMiddle), L"13 13 67 17");
    ASSERT_TRUE(m_button.SetNormalBitmap(IDB_NINE_NORMAL));
    EXPECT_EQ(PlaceOf(PictureInState(m_button, 0), NormalMiddle), L"13 13 107 27");
}

TEST_F(ExtendButtonTest, LockedGoesBeforeHoverAndHoverBeforeNormal)
{
    MakeButton();
    GiveFaces();
    EXPECT_EQ(MiddleOf(PictureInState(m_button, 0)), NormalMiddle);
    EXPECT_EQ(MiddleOf(PictureInState(m_button, ODS_SELECTED | ODS_FOCUS)), NormalMiddle);
    m_button.m_State.hover = TRUE;
    EXPECT_EQ(MiddleOf(PictureInState(m_button, 0)), HotMiddle);
    m_button.SetLocked(true);
    EXPECT_EQ(MiddleOf(PictureInState(m_button, 0)), LockedMiddle);
    m_button.SetLocked(false);
    EXPECT_EQ(MiddleOf(PictureInState(m_button, 0)), HotMiddle);
}

TEST_F(ExtendButtonTest, AMissingBitmapDrawsNothing)
{
    MakeButton();
    ASSERT_TRUE(m_button.SetNormalBitmap(IDB_NINE_NORMAL));
    EXPECT_FALSE(m_button.SetHotBitmap(9999));
    m_button.m_State.hover = TRUE;
    EXPECT_EQ(PictureInState(m_button, 0, RGB(9, 8, 7)), Picture(ButtonSize.cx, ButtonSize.cy, RGB(9, 8, 7)));
}

TEST_F(ExtendButtonTest, WithoutAnyBitmapInTheLanguageFileTheButtonStaysPlain)
{
    MakeButton();
    EXPECT_FALSE(m_button.SetNormalBitmap(9999));
    EXPECT_EQ(MiddleOf(PictureInState(m_button, 0)), GetSysColor(COLOR_BTNFACE));
}

TEST_F(ExtendButtonTest, InHighContrastTheSystemsColoursReplaceTheFace)
{
    MakeButton();
    GiveFaces();
    const HighContrast contrast;
    const Picture picture = PictureInState(m_button, 0);
    EXPECT_EQ(picture.Part({1, 1, ButtonSize.cx - 1, ButtonSize.cy - 1}),
              Picture(ButtonSize.cx - 2, ButtonSize.cy - 2, GetSysColor(COLOR_BTNFACE)));
    EXPECT_EQ(picture.Part({0, 0, ButtonSize.cx, 1}), Picture(ButtonSize.cx, 1, GetSysColor(COLOR_BTNTEXT)))
        << "a line stands for the edge of the face";
}

TEST_F(ExtendButtonTest, WhatIsInTheKeyColourIsOutsideOfTheShape)
{
    MakeButton();
    ASSERT_TRUE(m_button.SetNormalBitmap(IDB_NINE_CUT));
    const Picture picture = PictureInState(m_button, 0, RGB(9, 8, 7));
    EXPECT_EQ(PlaceOf(picture, RGB(9, 8, 7)), L"0 0 13 13");
    EXPECT_EQ(picture.At(12, 12), RGB(9, 8, 7));
    EXPECT_EQ(picture.At(13, 12), RGB(0x50, 0x70, 0xa0));
    m_button.SetHotBitmap(IDB_NINE_HOT);
    m_button.m_State.hover = TRUE;
    EXPECT_FALSE(Has(PictureInState(m_button, 0, RGB(9, 8, 7)), RGB(9, 8, 7))) << "every face has its own shape";
}

TEST_F(ExtendButtonTest, TheFrameIsClippedToTheShapeToo)
{
    MakeButton();
    m_button.SetFrame(true);
    m_button.SetKeyColour(NormalTopLeft);
    ASSERT_TRUE(m_button.SetNormalBitmap(IDB_NINE_NORMAL));
    EXPECT_EQ(PictureInState(m_button, 0, RGB(9, 8, 7)).At(0, 0), RGB(9, 8, 7));
}

TEST_F(ExtendButtonTest, ASettersRedrawIsAsked)
{
    MakeButton();
    const int before = m_button.m_nRefreshes;
    m_button.SetNormalBitmap(IDB_NINE_NORMAL, FALSE);
    EXPECT_EQ(m_button.m_nRefreshes, before);
    m_button.SetNormalBitmap(IDB_NINE_NORMAL, TRUE);
    EXPECT_EQ(m_button.m_nRefreshes, before + 1);
}

TEST_F(ExtendButtonTest, RefreshHasTheParentPaintTheAreaOfTheButton)
{
    MakeButton();
    m_stage.RedrawWindow(RDW_VALIDATE | RDW_ALLCHILDREN);
    m_button.CExtendButton::RefreshButton();
    RECT area{};
    ASSERT_TRUE(GetUpdateRect(m_stage, &area, FALSE));
    EXPECT_TRUE(EqualRect(&area, &ButtonStage::Place));
}

TEST_F(ExtendButtonTest, AButtonWithNoTextCentresItsIcon)
{
    MakeButton();
    ASSERT_TRUE(m_button.SetIcons(IDI_BLUE));
    EXPECT_EQ(PlaceOf(PictureInState(m_button, 0), Blue), L"32 7 48 23");
    m_button.SetLayout(true, 8, 8);
    EXPECT_EQ(PlaceOf(PictureInState(m_button, 0), Blue), L"32 7 48 23");
}

TEST_F(ExtendButtonTest, BesideATextTheIconStandsAtTheMargin)
{
    MakeButton(L"Help");
    ASSERT_TRUE(m_button.SetIcons(IDI_BLUE));
    EXPECT_EQ(PlaceOf(PictureInState(m_button, 0), Blue), L"8 7 24 23");
    m_button.SetLayout(false, 3, 8);
    EXPECT_EQ(PlaceOf(PictureInState(m_button, 0), Blue), L"3 7 19 23");
}

TEST_F(ExtendButtonTest, AboveATextTheIconStandsAtTheMarginFromTheTop)
{
    MakeButton(L"Help");
    ASSERT_TRUE(m_button.SetIcons(IDI_BLUE));
    m_button.SetLayout(true, 2, 1);
    EXPECT_EQ(PlaceOf(PictureInState(m_button, 0), Blue), L"32 2 48 18");
}

TEST_F(ExtendButtonTest, APressedButtonDrawsTheIconOnePixelDownAndRight)
{
    MakeButton();
    ASSERT_TRUE(m_button.SetIcons(IDI_BLUE));
    EXPECT_EQ(PlaceOf(PictureInState(m_button, ODS_SELECTED), Blue), L"33 8 49 24");
}

TEST_F(ExtendButtonTest, TheSecondIconIsShownAtRestAlone)
{
    MakeButton();
    ASSERT_TRUE(m_button.SetIcons(IDI_BLUE, IDI_ORANGE));
    EXPECT_EQ(MiddleOf(PictureInState(m_button, 0)), Orange);
    EXPECT_EQ(MiddleOf(PictureInState(m_button, ODS_DEFAULT)), Orange);
    EXPECT_EQ(MiddleOf(PictureInState(m_button, ODS_FOCUS)), Blue);
    EXPECT_EQ(MiddleOf(PictureInState(m_button, ODS_SELECTED)), Blue);
    m_button.m_State.hover = TRUE;
    EXPECT_EQ(MiddleOf(PictureInState(m_button, 0)), Blue);
}

TEST_F(ExtendButtonTest, ADisabledButtonShowsTheThirdIconOrTheFirstGreyedOut)
{
    MakeButton();
    ASSERT_TRUE(m_button.SetIcons(IDI_BLUE, IDI_ORANGE));
    const Picture grey = PictureInState(m_button, ODS_DISABLED);
    const Picture expected = Reference(
        [](HDC dc)
        {
            FillSolidRect(dc, {0, 0, ButtonSize.cx, ButtonSize.cy}, GetSysColor(COLOR_BTNFACE));
            const UniqueIcon icon = LoadIconImage(IDI_BLUE, {16, 16});
            DrawStateW(dc, nullptr, nullptr, reinterpret_cast<LPARAM>(icon.get()), 0, 32, 7, 16, 16,
                       DST_ICON | DSS_DISABLED);
        });
    EXPECT_EQ(grey, expected);
    EXPECT_FALSE(Has(grey, Blue));
    ASSERT_TRUE(m_button.SetThirdIcon(IDI_PINK));
    EXPECT_EQ(PlaceOf(PictureInState(m_button, ODS_DISABLED), Pink), L"32 7 48 23");
    EXPECT_EQ(MiddleOf(PictureInState(m_button, 0)), Orange);
}

TEST_F(ExtendButtonTest, ASingleLineStartsBehindMarginAndGapInTheMiddle)
{
    MakeButton(L"View");
    EXPECT_EQ(PictureInState(m_button, 0), TextAt({16, 0, 80, 30}, DT_SINGLELINE | DT_VCENTER));
    m_button.SetLayout(false, 3, 4);
    EXPECT_EQ(PictureInState(m_button, 0), TextAt({7, 0, 80, 30}, DT_SINGLELINE | DT_VCENTER));
}

TEST_F(ExtendButtonTest, ATextBehindAnIconStartsAfterItsWidth)
{
    MakeButton(L"Hi");
    ASSERT_TRUE(m_button.SetIcons(IDI_BLUE));
    const Picture picture = PictureInState(m_button, 0);
    EXPECT_EQ(PlaceOf(picture, TextColour), PlaceOf(TextAt({32, 0, 80, 30}, DT_SINGLELINE | DT_VCENTER), TextColour));
}

TEST_F(ExtendButtonTest, AMarginOfZeroCentresTheText)
{
    MakeButton(L"OK");
    m_button.SetLayout(false, 0, 8);
    EXPECT_EQ(PictureInState(m_button, 0), TextAt({8, 0, 80, 30}, DT_SINGLELINE | DT_VCENTER | DT_CENTER));
}

TEST_F(ExtendButtonTest, SeveralLinesAreCentredAsABlock)
{
    MakeButton(L"one two three", BS_MULTILINE);
    m_button.SetLayout(false, 8, 20);
    RECT measured{28, 0, 80, 30};
    {
        const CClientDC dc(m_button);
        const CSelectObject font(dc, m_stage.GetFont());
        ASSERT_GT(DrawTextW(dc, L"one two three", -1, &measured, DT_WORDBREAK | DT_CALCRECT), 20) << "two lines";
    }
    const LONG top = (30 - measured.bottom) / 2;
    EXPECT_EQ(PictureInState(m_button, 0), TextAt({28, top, 80, 30}, DT_WORDBREAK));
}

TEST_F(ExtendButtonTest, BelowItsIconTheTextIsCentred)
{
    MakeButton(L"Hi");
    m_button.SetLayout(true, 4, 5);
    EXPECT_EQ(PictureInState(m_button, 0), TextAt({0, 9, 80, 30}, DT_SINGLELINE | DT_CENTER));
    ASSERT_TRUE(m_button.SetIcons(IDI_BLUE));
    m_button.SetLayout(true, 0, 0);
    EXPECT_EQ(PlaceOf(PictureInState(m_button, 0), TextColour),
              PlaceOf(TextAt({0, 16, 80, 30}, DT_SINGLELINE | DT_CENTER), TextColour));
}

TEST_F(ExtendButtonTest, ATextThatIsTooLongEndsInDots)
{
    MakeButton(L"Show everything that was found");
    const Picture picture = PictureInState(m_button, 0);
    EXPECT_EQ(picture, TextAt({16, 0, 80, 30}, DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS));
    EXPECT_NE(picture, TextAt({16, 0, 80, 30}, DT_SINGLELINE | DT_VCENTER));
}

TEST_F(ExtendButtonTest, ADisabledOneDrawsGreyText)
{
    MakeButton(L"View");
    const Picture picture = PictureInState(m_button, ODS_DISABLED);
    EXPECT_EQ(picture, TextAt({16, 0, 80, 30}, DT_SINGLELINE | DT_VCENTER, GetSysColor(COLOR_GRAYTEXT)));
    EXPECT_FALSE(Has(picture, TextColour));
}

TEST_F(ExtendButtonTest, TheTextHasTheButtonsFontAndTheLockedFontWhenLocked)
{
    MakeButton(L"View");
    LOGFONTW description{};
    ASSERT_NE(GetObjectW(m_stage.GetFont(), sizeof description, &description), 0);
    CFont large;
    description.lfHeight = -20;
    ASSERT_TRUE(large.CreateFontIndirect(description));
    const Picture small = PictureInState(m_button, 0);
    m_button.SetButtonFont(&large);
    const Picture own = PictureInState(m_button, 0);
    EXPECT_NE(own, small);
    m_button.SetLocked(true);
    EXPECT_EQ(PictureInState(m_button, 0), small) << "no locked font: the parent's";
    m_button.SetLockedFont(&large);
    EXPECT_EQ(PictureInState(m_button, 0), own);
}

TEST_F(ExtendButtonTest, TheFocusRectangleIsThreePixelsInside)
{
    MakeButton();
    const auto expected = Reference(
        [](HDC dc)
        {
            FillSolidRect(dc, {0, 0, ButtonSize.cx, ButtonSize.cy}, GetSysColor(COLOR_BTNFACE));
            const RECT focus{3, 3, ButtonSize.cx - 3, ButtonSize.cy - 3};
            CBrush accent;
            accent.CreateSolidBrush(SkinColour::Focus);
            FrameRect(dc, &focus, accent);
        });
    const Picture plain(ButtonSize.cx, ButtonSize.cy, GetSysColor(COLOR_BTNFACE));
    ASSERT_NE(expected, plain);
    EXPECT_EQ(PictureInState(m_button, ODS_FOCUS), expected);
    m_button.SetFocusDrawn(false);
    EXPECT_EQ(PictureInState(m_button, ODS_FOCUS), plain);
    m_button.SetFocusDrawn(true);
    m_button.SetLocked(true);
    EXPECT_EQ(PictureInState(m_button, ODS_FOCUS), plain) << "locked";
}
