#include "framework/ui/kestrix/app/PushButtonSkin.h"

#include "framework/ui/kestrix/controls/ExtendButton.h"
#include "tests/support/LanguageFile.h"
#include "tests/ui/framework/ui/kestrix/controls/ButtonStage.h"

#include <gtest/gtest.h>

namespace
{

constexpr COLORREF TextColour = RGB(200, 10, 200); // nothing else has it

class PushButtonSkinTest : public ::testing::Test
{
protected:
    void Skin(bool centred)
    {
        ASSERT_TRUE(m_button.Make(m_stage, L"Hi"));
        m_button.SetTextColour(TextColour);
        SetSkin(m_button, centred);
    }

    RECT TextPlace()
    {
        RECT place{};
        const std::wstring sides = PlaceOf(PictureInState(m_button, 0), TextColour);
        EXPECT_EQ(swscanf(sides.c_str(), L"%ld %ld %ld %ld", &place.left, &place.top, &place.right, &place.bottom), 4);
        EXPECT_LT(place.left, place.right) << "no text is drawn";
        return place;
    }

    const LanguageFile m_language;
    ButtonStage m_stage;
    OpenButton<CExtendButton> m_button;
};

} // namespace

// The classic frame is all that differs between these states.
TEST_F(PushButtonSkinTest, ASkinnedButtonHasNoClassicFrame)
{
    Skin(true);
    const Picture atRest = PictureInState(m_button, 0);
    EXPECT_EQ(PictureInState(m_button, ODS_SELECTED), atRest);
    EXPECT_EQ(PictureInState(m_button, ODS_DEFAULT), atRest);
    m_button.SetFrame(true);
    EXPECT_NE(PictureInState(m_button, ODS_SELECTED), atRest);
    EXPECT_NE(PictureInState(m_button, 0), atRest);
}

TEST_F(PushButtonSkinTest, ASkinnedButtonWithoutAnIconCentresItsText)
{
    Skin(true);
    const RECT place = TextPlace();
    EXPECT_NEAR(place.left + place.right, ButtonSize.cx, 3);
    EXPECT_NEAR(place.top + place.bottom, ButtonSize.cy, 6); // a line has room below for letters that this text lacks
}

TEST_F(PushButtonSkinTest, WithAnIconToComeTheTextStandsAfterMarginAndGap)
{
    Skin(false);
    EXPECT_NEAR(TextPlace().left, 16, 2);
}
