#include "framework/ui/kestrix/controls/ExtendButton.h"

#include "tests/support/LiveHandles.h"
#include "tests/ui/framework/ui/kestrix/controls/ButtonStage.h"

#include <gtest/gtest.h>

namespace
{

class ExtendButtonInputTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_button.Make(m_stage, L"Export")); }

    bool IsPressed() const { return (m_button.SendMessage(BM_GETSTATE) & BST_PUSHED) != 0; }

    ButtonStage m_stage;
    OpenButton<CExtendButton> m_button;
};

// Notes the steps of the drawing in their order.
class SteppingButton : public OpenButton<CExtendButton>
{
public:
    void DrawBackground(HDC dc, const RECT& rect, const OwnerButtonState& state) override
    {
        m_steps.push_back(L"background");
        CExtendButton::DrawBackground(dc, rect, state);
    }

    void FillBackground(HDC, const RECT&, const OwnerButtonState&) override { m_steps.push_back(L"fill"); }

    void DrawTransparent(HDC, const RECT&, const OwnerButtonState&) override { m_steps.push_back(L"transparent"); }

    void DrawImageButton(HDC, const RECT&, const OwnerButtonState&) override { m_steps.push_back(L"image"); }

    void DrawFrame(HDC, const RECT&, const OwnerButtonState&) override { m_steps.push_back(L"frame"); }

    void DrawText(HDC dc, const RECT&, const OwnerButtonState&) override
    {
        EXPECT_EQ(GetBkMode(dc), TRANSPARENT);
        m_steps.push_back(L"text");
    }

    void DrawIcon(HDC, const RECT&, const OwnerButtonState&) override { m_steps.push_back(L"icon"); }

    void DrawFocus(HDC, const RECT&, const OwnerButtonState&) override { m_steps.push_back(L"focus"); }

    // The steps of one drawing.
    Notes Steps()
    {
        m_steps.clear();
        PictureInState(*this, 0);
        return m_steps;
    }

private:
    Notes m_steps;
};

} // namespace

TEST_F(ExtendButtonInputTest, ALockedSkinButtonSwallowsClicks)
{
    m_button.SetLocked(true);
    Click(m_button);
    m_button.SendMessage(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5));
    EXPECT_FALSE(IsPressed());
    m_button.SendMessage(BM_CLICK);
    EXPECT_EQ(m_stage.m_nClicks, 0);
    EXPECT_EQ(m_stage.m_nDoubleClicks, 0);
}

TEST_F(ExtendButtonInputTest, ALockedButtonSwallowsTheSpaceKey)
{
    m_button.SetLocked(true);
    m_button.SendMessage(WM_KEYDOWN, VK_SPACE);
    EXPECT_FALSE(IsPressed());
    m_button.SendMessage(WM_KEYUP, VK_SPACE);
    EXPECT_EQ(m_stage.m_nClicks, 0);
}

TEST_F(ExtendButtonInputTest, ALockedButtonThatIsClickableReacts)
{
    m_button.SetLocked(true);
    m_button.SetClickableWhenLocked(true);
    Click(m_button);
    EXPECT_EQ(m_stage.m_nClicks, 1);
    m_button.SendMessage(WM_KEYDOWN, VK_SPACE);
    m_button.SendMessage(WM_KEYUP, VK_SPACE);
    EXPECT_EQ(m_stage.m_nClicks, 2);
    m_button.SendMessage(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5));
    EXPECT_EQ(m_stage.m_nDoubleClicks, 1);
}

TEST_F(ExtendButtonInputTest, AnUnlockedButtonReactsAgain)
{
    m_button.SetLocked(true);
    m_button.SetLocked(false);
    Click(m_button);
    EXPECT_EQ(m_stage.m_nClicks, 1);
}

TEST_F(ExtendButtonInputTest, LockingEndsAPressThatIsUnderWay)
{
    m_button.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    ASSERT_TRUE(IsPressed());
    ASSERT_EQ(GetCapture(), m_button.GetSafeHwnd());
    m_button.SetLocked(true);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(IsPressed());
    m_button.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(m_stage.m_nClicks, 0);
}

TEST_F(ExtendButtonInputTest, ALockedButtonStillKnowsHover)
{
    m_button.SetLocked(true);
    MoveMouseOver(m_button);
    EXPECT_TRUE(m_button.m_State.hover);
    m_button.SendMessage(WM_MOUSELEAVE);
    EXPECT_FALSE(m_button.m_State.hover);
}

TEST_F(ExtendButtonInputTest, ASecondNameForTheWindowEnablesAndDisablesIt)
{
    OpenButton<CExtendButton> wrapper;
    wrapper.Attach(m_button);
    wrapper.EnableWindow(false);
    EXPECT_FALSE(m_button.IsWindowEnabled());
    wrapper.EnableWindow(true);
    EXPECT_TRUE(m_button.IsWindowEnabled());
    wrapper.Detach();
    Click(m_button);
    EXPECT_EQ(m_stage.m_nClicks, 1);
}

TEST(ExtendButtonStepsTest, BackgroundFrameIconTextAndFocusFollowEachOther)
{
    ButtonStage stage;
    SteppingButton button;
    ASSERT_TRUE(button.Make(stage, L"Help"));
    EXPECT_EQ(button.Steps(), (Notes{L"background", L"fill", L"frame", L"text", L"focus"}));
    ASSERT_TRUE(button.SetIcons(IDI_BLUE));
    ASSERT_TRUE(button.SetNormalBitmap(IDB_NINE_NORMAL));
    EXPECT_EQ(button.Steps(), (Notes{L"background", L"image", L"frame", L"icon", L"text", L"focus"}));
    button.SetFrame(false);
    EXPECT_EQ(button.Steps(), (Notes{L"background", L"image", L"icon", L"text", L"focus"}));
}

TEST(ExtendButtonStepsTest, ATransparentButtonDrawsItsOwnGround)
{
    ButtonStage stage;
    SteppingButton button;
    ASSERT_TRUE(button.Make(stage, {}, 0, WS_EX_TRANSPARENT));
    EXPECT_EQ(button.Steps(), (Notes{L"background", L"transparent", L"frame", L"text", L"focus"}));
}

TEST(ExtendButtonLifeTest, AThousandButtonsLeaveNothingBehind)
{
    ButtonStage stage;
    const auto show = [&](OpenButton<CExtendButton>& button)
    {
        ASSERT_TRUE(button.Make(stage, L"Help"));
        ASSERT_TRUE(button.SetNormalBitmap(IDB_NINE_CUT));
        ASSERT_TRUE(button.SetHotBitmap(IDB_NINE_HOT));
        ASSERT_TRUE(button.SetIcons(IDI_BLUE, IDI_ORANGE));
        button.RedrawWindow();
    };
    {
        OpenButton<CExtendButton> first; // what it makes for all buttons of the process stays
        show(first);
    }
    const long before = AllLiveHandles();
    for (int i = 0; i < 1000; ++i)
    {
        OpenButton<CExtendButton> button;
        show(button);
        ASSERT_GT(AllLiveHandles(), before);
    }
    EXPECT_EQ(AllLiveHandles(), before);
    EXPECT_EQ(GetWindow(stage, GW_CHILD), nullptr);
}

TEST(ExtendButtonLifeTest, SmallButtonsAndEmptyOnesAreDrawnWithoutHarm)
{
    ButtonStage stage;
    for (const SIZE size : {SIZE{0, 0}, SIZE{0, 20}, SIZE{20, 0}, SIZE{1, 1}, SIZE{2, 3}, SIZE{20, 20}})
    {
        OpenButton<CExtendButton> button;
        ASSERT_TRUE(button.Make(stage, L"Help", 0, 0, {0, 0, size.cx, size.cy}));
        ASSERT_TRUE(button.SetNormalBitmap(IDB_NINE_NORMAL));
        ASSERT_TRUE(button.SetIcons(IDI_BLUE));
        button.SetFrame(size.cx < 20);
        button.RedrawWindow();
        const RECT rect{0, 0, size.cx, size.cy};
        const Picture ground = PictureOf(SIZE{30, 30},
                                         [&](HDC dc)
                                         {
                                             DRAWITEMSTRUCT item{};
                                             item.hDC = dc;
                                             item.rcItem = rect;
                                             item.itemState = ODS_FOCUS | ODS_SELECTED;
                                             button.DrawItem(item);
                                         });
        for (int y = 0; y < 30; ++y)
        {
            for (int x = 0; x < 30; ++x)
            {
                if (x >= size.cx || y >= size.cy)
                {
                    ASSERT_EQ(ground.At(x, y), RGB(255, 255, 255)) << "outside of " << size.cx << " by " << size.cy;
                }
            }
        }
    }
}
