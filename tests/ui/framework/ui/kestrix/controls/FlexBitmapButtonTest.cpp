#include "framework/ui/kestrix/controls/FlexBitmapButton.h"

#include "tests/support/LiveHandles.h"
#include "tests/ui/framework/ui/kestrix/controls/ButtonStage.h"

#include <gtest/gtest.h>

#include <array>

namespace
{

using FlexButton = OpenButton<CFlexBitmapButton>;

constexpr COLORREF Key = RGB(0, 255, 0);
constexpr COLORREF TopLeft = RGB(0x80, 0, 0);
constexpr COLORREF HoverMiddle = RGB(0xff, 0xe0, 0xb0);
constexpr COLORREF HoverTopLeft = RGB(0x60, 0x40, 0x20);
constexpr COLORREF FlexBlue = RGB(0, 0, 0xc0);
constexpr COLORREF FlexTextColour = RGB(200, 0, 100);
constexpr POINT FlexMiddle{ButtonSize.cx / 2, ButtonSize.cy / 2};

class FlexBitmapButtonTest : public testing::Test
{
protected:
    void MakeButton(const std::wstring& text = {}, DWORD exStyle = 0)
    {
        ASSERT_TRUE(m_button.Make(m_stage, text, 0, exStyle));
        m_button.SetTextColour(FlexTextColour);
    }

    void GivePictures() { ASSERT_TRUE(m_button.SetBitmaps(IDB_NINE_HOLE, IDB_NINE_HOT)); }

    Picture TextAt(const RECT& place, UINT format, COLORREF colour = FlexTextColour) const
    {
        return TextOf(m_button, m_stage, place, format | DT_VCENTER | DT_SINGLELINE, colour);
    }

    ButtonStage m_stage;
    FlexButton m_button;
};

} // namespace

TEST_F(FlexBitmapButtonTest, TheHoleShowsTheBackgroundColourOfAnOpaqueButton)
{
    MakeButton();
    GivePictures();
    m_button.SetBackgroundColour(RGB(4, 5, 6));
    const Picture picture = PictureInState(m_button, 0);
    EXPECT_EQ(PlaceOf(picture, RGB(4, 5, 6)), L"13 13 67 17");
    EXPECT_EQ(PlaceOf(picture, TopLeft), L"0 0 13 13");
    EXPECT_FALSE(Has(picture, Key));
}

TEST_F(FlexBitmapButtonTest, TheHoleShowsWhatTheParentErasesAndPaintsBelow)
{
    for (const DWORD style : {DWORD{0}, DWORD{WS_CLIPCHILDREN}})
    {
        ButtonStage stage(style);
        FlexButton button;
        ASSERT_TRUE(button.Make(stage, {}, 0, WS_EX_TRANSPARENT));
        ASSERT_TRUE(button.SetBitmaps(IDB_NINE_HOLE, IDB_NINE_HOT));
        const Picture picture = PictureOf(button);
        // The stripe of the parent reaches ten pixels into the button, the ground lies right of it.
        EXPECT_EQ(PlaceOf(picture, ButtonStage::Ground), L"13 13 67 17") << style;
        EXPECT_EQ(PlaceOf(picture, TopLeft), L"0 0 13 13");
        EXPECT_FALSE(Has(picture, Key));
        button.MoveWindow({0, 0, 80, 30});
        EXPECT_EQ(PlaceOf(PictureOf(button), ButtonStage::Stripe), L"13 13 30 17") << style;
    }
}

TEST_F(FlexBitmapButtonTest, WithoutPicturesATransparentButtonIsWhatItsParentShows)
{
    MakeButton({}, WS_EX_TRANSPARENT);
    const Picture picture = PictureOf(m_button);
    EXPECT_EQ(PlaceOf(picture, ButtonStage::Stripe), L"0 0 10 30");
    EXPECT_EQ(PlaceOf(picture, ButtonStage::Ground), L"10 0 80 30");
}

TEST_F(FlexBitmapButtonTest, TheParentPaintsBelowWhileTheButtonIsHiddenAndTheButtonIsVisibleAfterwards)
{
    MakeButton({}, WS_EX_TRANSPARENT);
    bool wasVisible = true;
    m_stage.RedrawWindow();
    m_stage.m_onPaint = [&] { wasVisible = m_button.IsWindowVisible(); };
    const int paints = m_stage.m_nPaints;
    m_button.RedrawWindow();
    EXPECT_GT(m_stage.m_nPaints, paints);
    EXPECT_FALSE(wasVisible);
    EXPECT_TRUE(m_button.IsWindowVisible());
}

TEST_F(FlexBitmapButtonTest, AHiddenButtonStaysHiddenWhenItIsDrawn)
{
    MakeButton({}, WS_EX_TRANSPARENT);
    m_button.ShowWindow(SW_HIDE);
    PictureInState(m_button, 0);
    EXPECT_EQ(m_button.GetStyle() & WS_VISIBLE, 0u);
}

// The form has both of its caption buttons painted anew whenever it paints itself, and each of them has the form
// painted below it: this must come to an end.
TEST_F(FlexBitmapButtonTest, ButtonsThatTheirParentPaintsAnewWithItselfComeToRest)
{
    std::array<FlexButton, 2> buttons;
    for (std::size_t i = 0; i < buttons.size(); ++i)
    {
        const LONG left = static_cast<LONG>(i) * 100;
        ASSERT_TRUE(buttons.at(i).Make(m_stage, {}, 0, WS_EX_TRANSPARENT, {left, 0, left + 30, 30}));
        ASSERT_TRUE(buttons.at(i).SetBitmaps(IDB_NINE_HOLE, IDB_NINE_HOT));
    }
    constexpr int Limit = 20;
    m_stage.m_onPaint = [&]
    {
        if (m_stage.m_nPaints < Limit)
        {
            buttons[0].Invalidate();
            buttons[1].Invalidate();
        }
    };
    m_stage.m_nPaints = 0;
    m_stage.Invalidate();
    EXPECT_TRUE(WaitUntil(
        [&]
        {
            MSG message{};
            return m_stage.m_nPaints > 0 && !PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_NOREMOVE);
        }));
    EXPECT_LT(m_stage.m_nPaints, Limit);
}

TEST_F(FlexBitmapButtonTest, UnderThePointerTheSecondPictureIsCopiedWhole)
{
    MakeButton();
    ASSERT_TRUE(m_button.SetBitmaps(IDB_NINE_NORMAL, IDB_NINE_HOLE));
    m_button.m_State.hover = TRUE;
    EXPECT_EQ(PlaceOf(PictureInState(m_button, 0), Key), L"13 13 67 17") << "its key colour too";
    m_button.m_State.hover = FALSE;
    EXPECT_FALSE(Has(PictureInState(m_button, 0), Key));
}

TEST_F(FlexBitmapButtonTest, HoverChangesThePictureOnTheScreen)
{
    MakeButton({}, WS_EX_TRANSPARENT);
    GivePictures();
    EXPECT_EQ(PictureOf(m_button).At(FlexMiddle.x, FlexMiddle.y), ButtonStage::Ground);
    MoveMouseOver(m_button);
    EXPECT_EQ(PictureOf(m_button).At(FlexMiddle.x, FlexMiddle.y), HoverMiddle);
    EXPECT_EQ(PictureOf(m_button).At(0, 0), HoverTopLeft);
    m_button.SendMessage(WM_MOUSELEAVE);
    EXPECT_EQ(PictureOf(m_button).At(FlexMiddle.x, FlexMiddle.y), ButtonStage::Ground);
}

TEST_F(FlexBitmapButtonTest, AnotherKeyColourCutsAnotherHole)
{
    MakeButton();
    GivePictures();
    m_button.SetBackgroundColour(RGB(4, 5, 6));
    m_button.SetKeyColour(TopLeft);
    const Picture picture = PictureInState(m_button, 0);
    EXPECT_EQ(PlaceOf(picture, RGB(4, 5, 6)), L"0 0 13 13");
    EXPECT_EQ(PlaceOf(picture, Key), L"13 13 67 17");
}

TEST_F(FlexBitmapButtonTest, AMissingPictureDrawsNothing)
{
    MakeButton();
    const Picture plain(ButtonSize.cx, ButtonSize.cy, GetSysColor(COLOR_BTNFACE));
    EXPECT_FALSE(m_button.SetBitmaps(IDB_NINE_HOLE, 9999));
    EXPECT_NE(PictureInState(m_button, 0), plain);
    m_button.m_State.hover = TRUE;
    EXPECT_EQ(PictureInState(m_button, 0), plain);
    EXPECT_FALSE(m_button.SetBitmaps(9999, IDB_NINE_HOT));
    EXPECT_NE(PictureInState(m_button, 0), plain);
    m_button.m_State.hover = FALSE;
    EXPECT_EQ(PictureInState(m_button, 0), plain);
    EXPECT_FALSE(m_button.SetBitmaps(9998, 9999));
    EXPECT_EQ(PictureInState(m_button, 0), plain);
}

TEST_F(FlexBitmapButtonTest, TheTextIsCentredWithoutAnIcon)
{
    MakeButton(L"Close");
    EXPECT_EQ(PictureInState(m_button, 0), TextAt({0, 0, 80, 30}, DT_CENTER));
    EXPECT_EQ(PictureInState(m_button, ODS_DISABLED), TextAt({0, 0, 80, 30}, DT_CENTER, GetSysColor(COLOR_GRAYTEXT)));
}

TEST_F(FlexBitmapButtonTest, TheTextStartsBehindTheIconAndItsGap)
{
    MakeButton(L"Hi");
    ASSERT_TRUE(m_button.SetIcons(IDI_BLUE));
    const Picture picture = PictureInState(m_button, 0);
    EXPECT_EQ(PlaceOf(picture, FlexBlue), L"5 7 21 23");
    EXPECT_EQ(PlaceOf(picture, FlexTextColour), PlaceOf(TextAt({26, 0, 80, 30}, DT_LEFT), FlexTextColour));
    EXPECT_EQ(PlaceOf(PictureInState(m_button, ODS_SELECTED), FlexBlue), L"6 8 22 24");
}

TEST_F(FlexBitmapButtonTest, ATextThatIsTooLongEndsInDots)
{
    MakeButton(L"Close the window and all others");
    EXPECT_EQ(PictureInState(m_button, 0), TextAt({0, 0, 80, 30}, DT_CENTER | DT_END_ELLIPSIS));
}

TEST_F(FlexBitmapButtonTest, ANameIsForScreenReadersAndNotDrawn)
{
    MakeButton();
    m_button.SetName(L"Close");
    EXPECT_EQ(m_button.GetWindowText(), L"Close");
    EXPECT_EQ(PictureInState(m_button, 0), Picture(ButtonSize.cx, ButtonSize.cy, GetSysColor(COLOR_BTNFACE)));
}

TEST_F(FlexBitmapButtonTest, TheFocusRectangleIsThreePixelsInside)
{
    MakeButton();
    const Picture expected = Reference(
        [](HDC dc)
        {
            FillSolidRect(dc, {0, 0, ButtonSize.cx, ButtonSize.cy}, GetSysColor(COLOR_BTNFACE));
            const RECT focus{3, 3, ButtonSize.cx - 3, ButtonSize.cy - 3};
            CBrush accent;
            accent.CreateSolidBrush(SkinColour::Focus);
            FrameRect(dc, &focus, accent);
        });
    EXPECT_EQ(PictureInState(m_button, ODS_FOCUS), expected);
    m_button.SetFocusDrawn(false);
    EXPECT_NE(PictureInState(m_button, ODS_FOCUS), expected);
}

TEST_F(FlexBitmapButtonTest, EveryStateLooksAsKept)
{
    MakeButton();
    m_button.SetBackgroundColour(RGB(10, 200, 220));
    GivePictures();
    std::vector<Picture> pictures;
    for (const UINT state : {0, ODS_SELECTED, ODS_FOCUS, ODS_DISABLED, ODS_DEFAULT})
    {
        for (const BOOL hover : {FALSE, TRUE})
        {
            m_button.m_State.hover = hover;
            pictures.push_back(PictureInState(m_button, state));
        }
    }
    EXPECT_PICTURE(Stacked(pictures), "states");
}

TEST_F(FlexBitmapButtonTest, AThousandButtonsLeaveNothingBehind)
{
    const auto show = [this](FlexButton& button, DWORD exStyle)
    {
        ASSERT_TRUE(button.Make(m_stage, L"x", 0, exStyle));
        ASSERT_TRUE(button.SetBitmaps(IDB_NINE_HOLE, IDB_NINE_HOT));
        button.RedrawWindow();
    };
    {
        FlexButton first; // what it makes for all buttons of the process stays
        show(first, WS_EX_TRANSPARENT);
    }
    const long before = AllLiveHandles();
    for (int i = 0; i < 1000; ++i)
    {
        FlexButton button;
        show(button, i % 10 == 0 ? WS_EX_TRANSPARENT : 0);
        ASSERT_GT(AllLiveHandles(), before);
    }
    EXPECT_EQ(AllLiveHandles(), before);
    EXPECT_EQ(GetWindow(m_stage, GW_CHILD), nullptr);
}

TEST_F(FlexBitmapButtonTest, SmallButtonsAndEmptyOnesAreDrawnWithoutHarm)
{
    for (const SIZE size : {SIZE{0, 0}, SIZE{0, 20}, SIZE{20, 0}, SIZE{1, 1}, SIZE{20, 20}})
    {
        for (const DWORD exStyle : {DWORD{0}, DWORD{WS_EX_TRANSPARENT}})
        {
            FlexButton button;
            ASSERT_TRUE(button.Make(m_stage, L"Close", 0, exStyle, {0, 0, size.cx, size.cy}));
            ASSERT_TRUE(button.SetBitmaps(IDB_NINE_HOLE, IDB_NINE_HOT));
            button.RedrawWindow();
            if (size.cx > 0 && size.cy > 0)
            {
                EXPECT_EQ(PictureInState(button, 0).At(0, 0) != TopLeft, size.cx < 2) << size.cx;
            }
        }
    }
}
