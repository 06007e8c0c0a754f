#include "framework/ui/kestrix/controls/ExtendButton.h"

#include "resource/resource.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/StandingScale.h"
#include "tests/ui/framework/ui/kestrix/controls/ButtonStage.h"

#include <gtest/gtest.h>

// What extended buttons look like, against the pictures that are kept, and their frames pixel by pixel.

namespace
{

constexpr COLORREF Ground = RGB(10, 200, 220);

struct State
{
    UINT bits;
    bool hover;
    bool locked;
};

// From the top of each picture down.
constexpr State AllStates[] = {
    {0, false, false},                       // normal
    {0, true, false},                        // hover
    {ODS_SELECTED | ODS_FOCUS, true, false}, // pressed
    {ODS_FOCUS, false, false},               // focus
    {ODS_DISABLED, false, false},            // disabled
    {ODS_DEFAULT, false, false},             // default
    {0, true, true},                         // locked, under the pointer
    {ODS_DISABLED, false, true},             // locked and disabled
};

struct Kind
{
    const char* name;
    const wchar_t* text;
    DWORD style;
    DWORD exStyle;
    bool face;
    bool icon;
    bool vertical;
    bool frame;
};

constexpr Kind AllKinds[] = {
    {"face-text", L"Export...", 0, 0, true, false, false, false},
    {"face-frame", L"Export...", 0, 0, true, false, false, true},
    {"face-icon-text", L"Help", 0, 0, true, true, false, false},
    {"face-icon", L"", 0, 0, true, true, false, false},
    {"face-vertical", L"Help", 0, 0, true, true, true, false},
    {"face-lines", L"Show all entries", BS_MULTILINE, 0, true, false, false, false},
    {"face-long", L"Delete everything now", 0, 0, true, false, false, false},
    {"plain-frame", L"View", 0, 0, false, false, false, true},
    {"plain-icon", L"View", 0, 0, false, true, false, true},
    {"flat", L"View", BS_FLAT, 0, false, false, false, true},
    {"transparent", L"View", 0, WS_EX_TRANSPARENT, false, false, false, true},
};

void PrintTo(const Kind& kind, std::ostream* stream)
{
    *stream << kind.name;
}

class ExtendButtonPictureTest : public testing::TestWithParam<Kind>
{
protected:
    void SetUp() override
    {
        const Kind& kind = GetParam();
        const SIZE size{90, kind.vertical ? 44 : 32};
        ASSERT_TRUE(m_button.Make(m_stage, kind.text, kind.style, kind.exStyle, {0, 0, size.cx, size.cy}));
        m_button.SetLayout(kind.vertical, kind.vertical ? 4 : 8, kind.vertical ? 2 : 8);
        m_button.SetFrame(kind.frame);
        if (kind.face)
        {
            ASSERT_TRUE(m_button.SetNormalBitmap(IDB_NINE_NORMAL));
            ASSERT_TRUE(m_button.SetHotBitmap(IDB_NINE_HOT));
            ASSERT_TRUE(m_button.SetLockedBitmap(IDB_NINE_LOCKED));
        }
        if (kind.icon)
        {
            ASSERT_TRUE(m_button.SetIcons(IDI_BLUE, IDI_ORANGE));
        }
    }

    ButtonStage m_stage;
    OpenButton<CExtendButton> m_button;
};

// A button of its own for the frame: grey ground, no text.
class ExtendButtonFrameTest : public testing::Test
{
protected:
    Picture FrameOf(DWORD style, UINT state)
    {
        OpenButton<CExtendButton> button;
        EXPECT_TRUE(button.Make(m_stage, {}, style));
        button.SetFocusDrawn(false);
        button.SetBackgroundColour(Ground);
        return PictureInState(button, state);
    }

    ButtonStage m_stage;
};

// The rings of a frame from outside in, each with its top left and bottom right colour, on the ground.
Picture Rings(std::initializer_list<std::pair<COLORREF, COLORREF>> rings)
{
    Picture picture(ButtonSize.cx, ButtonSize.cy, Ground);
    int inset = 0;
    for (const auto& [topLeft, bottomRight] : rings)
    {
        const int right = ButtonSize.cx - 1 - inset;
        const int bottom = ButtonSize.cy - 1 - inset;
        for (int x = inset; x <= right; ++x)
        {
            picture.Set(x, inset, topLeft);
            picture.Set(x, bottom, bottomRight);
        }
        for (int y = inset; y <= bottom; ++y)
        {
            picture.Set(inset, y, y == bottom ? bottomRight : topLeft);
            picture.Set(right, y, bottomRight);
        }
        ++inset;
    }
    return picture;
}

} // namespace

TEST_P(ExtendButtonPictureTest, EveryStateLooksAsKept)
{
    std::vector<Picture> pictures;
    for (const State& state : AllStates)
    {
        m_button.m_State.hover = state.hover;
        m_button.SetLocked(state.locked);
        pictures.push_back(PictureInState(m_button, state.bits, Ground));
    }
    EXPECT_PICTURE(Stacked(pictures), GetParam().name);
}

TEST(ExtendButtonScaleTest, FaceMarginsAndFocusGrowWithTheScaleOfTheScreen)
{
    const LanguageFile language;
    ButtonStage stage;
    std::vector<Picture> pictures;
    for (const int dpi : {144, 192})
    {
        const StandingScale scale(dpi);
        OpenButton<CExtendButton> button;
        ASSERT_TRUE(button.Make(stage, L"View", 0, 0, {0, 0, 160, 60}));
        button.SetFrame(false);
        ASSERT_TRUE(button.SetNormalBitmap(IDB_BUTTON_FACE));
        pictures.push_back(PictureInState(button, ODS_FOCUS, Ground));
    }
    EXPECT_PICTURE(Stacked(pictures), "scaled");
}

INSTANTIATE_TEST_SUITE_P(, ExtendButtonPictureTest, testing::ValuesIn(AllKinds),
                         [](const auto& kind)
                         {
                             std::string name = kind.param.name;
                             std::ranges::replace(name, '-', '_');
                             return name;
                         });

TEST_F(ExtendButtonFrameTest, AtRestTheBevelHasFourColours)
{
    const COLORREF highlight = GetSysColor(COLOR_BTNHIGHLIGHT);
    const COLORREF light = GetSysColor(COLOR_3DLIGHT);
    const COLORREF dark = GetSysColor(COLOR_3DDKSHADOW);
    const COLORREF shadow = GetSysColor(COLOR_BTNSHADOW);
    EXPECT_EQ(FrameOf(0, 0), Rings({{highlight, dark}, {light, shadow}}));
    EXPECT_EQ(FrameOf(0, ODS_DISABLED), Rings({{highlight, dark}, {light, shadow}}));
}

TEST_F(ExtendButtonFrameTest, FocusAndDefaultPutABlackFrameAroundTheBevel)
{
    const COLORREF highlight = GetSysColor(COLOR_BTNHIGHLIGHT);
    const COLORREF light = GetSysColor(COLOR_3DLIGHT);
    const COLORREF dark = GetSysColor(COLOR_3DDKSHADOW);
    const COLORREF shadow = GetSysColor(COLOR_BTNSHADOW);
    const Picture expected = Rings({{0, 0}, {highlight, dark}, {light, shadow}});
    EXPECT_EQ(FrameOf(0, ODS_FOCUS), expected);
    EXPECT_EQ(FrameOf(0, ODS_DEFAULT), expected);
}

TEST_F(ExtendButtonFrameTest, APressedButtonHasABlackFrameAndAShadowInIt)
{
    const COLORREF shadow = GetSysColor(COLOR_BTNSHADOW);
    EXPECT_EQ(FrameOf(0, ODS_SELECTED), Rings({{0, 0}, {shadow, shadow}}));
    EXPECT_EQ(FrameOf(0, ODS_SELECTED | ODS_FOCUS), Rings({{0, 0}, {shadow, shadow}}));
}

TEST_F(ExtendButtonFrameTest, AFlatButtonHasAFrameOfTwoColoursWhilePressedAndElseNone)
{
    EXPECT_EQ(FrameOf(BS_FLAT, 0), Rings({}));
    EXPECT_EQ(FrameOf(BS_FLAT, ODS_FOCUS | ODS_DEFAULT), Rings({}));
    EXPECT_EQ(FrameOf(BS_FLAT, ODS_SELECTED), Rings({{GetSysColor(COLOR_BTNSHADOW), GetSysColor(COLOR_BTNHIGHLIGHT)}}));
}
