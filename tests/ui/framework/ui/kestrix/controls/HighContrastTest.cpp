// In high contrast the colours of the system replace those of the skin.

#include "tests/support/HighContrast.h"
#include "framework/ui/kestrix/controls/ColorText.h"
#include "framework/ui/kestrix/controls/CuteTabCtrl.h"
#include "framework/ui/kestrix/controls/FlexBitmapButton.h"
#include "framework/ui/kestrix/controls/SkinColours.h"
#include "framework/ui/kestrix/controls/SkinFrame.h"
#include "resource/resource.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/Picture.h"
#include "tests/ui/gallery/SkinDialog.h"

#include <gtest/gtest.h>

#include <set>

namespace
{

constexpr COLORREF Strange = RGB(200, 0, 150); // of no system

std::set<COLORREF> ColoursOf(const Picture& picture)
{
    std::set<COLORREF> colours;
    for (int y = 0; y < picture.Height(); ++y)
    {
        for (int x = 0; x < picture.Width(); ++x)
        {
            colours.insert(picture.At(x, y));
        }
    }
    return colours;
}

class HighContrastTest : public testing::Test
{
protected:
    HighContrastTest() { m_dialog.ShowWindow(SW_SHOWNA); }

    CSkinDialog m_dialog{{260, 180}};
    const LanguageFile m_language;
};

} // namespace

TEST_F(HighContrastTest, ADialogHasTheSystemsGroundWhileItLasts)
{
    m_dialog.RemoveControls();
    ASSERT_TRUE(m_dialog.SetBackground(IDB_FRAME_TOP));
    EXPECT_EQ(PictureOf(m_dialog).At(130, 90), SkinColour::Title);
    {
        const HighContrast contrast;
        EXPECT_EQ(PictureOf(m_dialog).At(130, 90), GetSysColor(COLOR_BTNFACE));
    }
    EXPECT_EQ(PictureOf(m_dialog).At(130, 90), SkinColour::Title) << "the user may switch it off again";
}

TEST_F(HighContrastTest, TheFrameIsOfTheSystemsColoursAlone)
{
    const HighContrast contrast;
    const auto draw = [](HDC dc) { DrawSkinFrame(dc, {120, 90}, FrameTop::Stretched); };
    EXPECT_EQ(ColoursOf(PictureOf({120, 90}, draw, Strange)),
              (std::set{GetSysColor(COLOR_ACTIVECAPTION), GetSysColor(COLOR_BTNTEXT), Strange}));
}

TEST_F(HighContrastTest, ATextHasTheSystemsColourOnTheSystemsGround)
{
    m_dialog.RemoveControls();
    CColorText text;
    ASSERT_TRUE(text.Create(WC_STATICW, L"Dates", WS_CHILD | WS_VISIBLE, {10, 10, 110, 30}, m_dialog, 7));
    text.SetBackground(Strange, true);
    text.SetFrame(Strange, true);
    text.SetTextColour(Strange, COLOR_HOTLIGHT);
    const HighContrast contrast;
    const std::set<COLORREF> colours = ColoursOf(PictureOf(text));
    EXPECT_FALSE(colours.contains(Strange));
    EXPECT_TRUE(colours.contains(GetSysColor(COLOR_BTNFACE)));
    EXPECT_TRUE(colours.contains(GetSysColor(COLOR_BTNTEXT))) << "its frame";
}

TEST_F(HighContrastTest, TabsHaveNoPicturesAndNoColoursOfTheirOwn)
{
    m_dialog.RemoveControls();
    CCuteTabCtrl tabs;
    ASSERT_TRUE(tabs.Create(WS_CHILD | WS_VISIBLE, {0, 0, 250, 60}, m_dialog, 7));
    tabs.SetBitmaps(IDB_TAB, IDB_TAB_SELECTED);
    tabs.SetColours({.background = Strange, .border = Strange, .normalText = Strange, .selectedText = Strange});
    tabs.InsertItem(0, L"Report");
    tabs.InsertItem(1, L"Logs");
    const HighContrast contrast;
    const std::set<COLORREF> colours = ColoursOf(PictureOf(tabs));
    EXPECT_FALSE(colours.contains(Strange));
    EXPECT_FALSE(colours.contains(SkinColour::Tab));
    EXPECT_FALSE(colours.contains(SkinColour::Focus)) << "the accent of the selected tab";
    EXPECT_TRUE(colours.contains(GetSysColor(COLOR_BTNFACE)));
    EXPECT_TRUE(colours.contains(GetSysColor(COLOR_BTNTEXT))) << "outlines";
}

TEST_F(HighContrastTest, AButtonOfTheTitleBarShowsTheSystemsSign)
{
    m_dialog.RemoveControls();
    CFlexBitmapButton button;
    ASSERT_TRUE(button.Create(WC_BUTTONW, L"Close", WS_CHILD | WS_VISIBLE, {10, 10, 38, 38}, m_dialog, 7));
    button.SetName(L"Close");
    button.SetBitmaps(IDB_CLOSE_HOT, IDB_CLOSE_HOT);
    button.SetCaptionSign(DFCS_CAPTIONCLOSE);
    const HighContrast contrast;
    const Picture system = PictureOf({28, 28},
                                     [](HDC dc)
                                     {
                                         RECT place{0, 0, 28, 28};
                                         DrawFrameControl(dc, &place, DFC_CAPTION, DFCS_CAPTIONCLOSE);
                                     });
    EXPECT_EQ(PictureOf(button), system);
}
