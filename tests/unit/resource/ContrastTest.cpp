// Whether the skin's texts can be read on what they stand on, and its signs and marks be seen, by the relative
// luminance of their colours: from 1, none, to 21, black on white.

#include "framework/ui/kestrix/controls/SkinColours.h"
#include "resource/resource.h"
#include "tests/unit/resource/BuiltBitmap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>

namespace
{

constexpr double LeastForText = 4.5;
constexpr double LeastForSigns = 3;
constexpr int IconWidth = 16;

double Linear(BYTE part)
{
    const double share = part / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double Luminance(COLORREF colour)
{
    return 0.2126 * Linear(GetRValue(colour)) + 0.7152 * Linear(GetGValue(colour)) + 0.0722 * Linear(GetBValue(colour));
}

double Contrast(COLORREF one, COLORREF other)
{
    const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

struct Pair
{
    const char* what;
    COLORREF colour;
    COLORREF ground;
};

constexpr Pair Texts[] = {
    {"the heading in the title bar", SkinColour::TitleText, SkinColour::Title},
    {"texts of a page", SkinColour::Text, SkinColour::Ground},
    {"a button", SkinColour::Text, SkinColour::Face},
    {"a tab that is not selected", SkinColour::Text, SkinColour::Tab},
    {"the headings of dates and entries", SkinColour::Text, SkinColour::ListHeading},
    {"the heading of the details", SkinColour::Text, SkinColour::DetailHeading},
    {"a link", SkinColour::Link, SkinColour::Ground},
};

constexpr Pair Marks[] = {
    {"the focus in a page", SkinColour::Focus, SkinColour::Ground},
    {"the focus on a button", SkinColour::Focus, SkinColour::Face},
    {"the focus on a tab", SkinColour::Focus, SkinColour::Tab},
    {"the focus in the title bar", SkinColour::TitleFocus, SkinColour::Title},
};

struct Drawn
{
    unsigned bitmap;
    COLORREF ground;
};

// What texts stand on, in the middle of its drawing.
constexpr Drawn Grounds[] = {{IDB_BACKGROUND, SkinColour::Ground},
                             {IDB_FRAME_TOP, SkinColour::Title},
                             {IDB_BUTTON_FACE, SkinColour::Face},
                             {IDB_TAB, SkinColour::Tab},
                             {IDB_TAB_SELECTED, SkinColour::Ground}};

// The colour of most pixels of an icon, but for those that are left out and the sign on it.
COLORREF BodyOf(const Bitmap& strip, int icon)
{
    std::map<COLORREF, int> counts;
    for (int y = 0; y < strip.height; ++y)
    {
        for (int x = icon * IconWidth; x < (icon + 1) * IconWidth; ++x)
        {
            ++counts[strip.At(x, y)];
        }
    }
    counts.erase(SkinColour::Ground);
    counts.erase(SkinColour::TitleFocus); // the paper of the palette
    return std::ranges::max_element(counts, {}, &std::pair<const COLORREF, int>::second)->first;
}

} // namespace

TEST(Contrast, IsMeasuredFromBlackOnWhiteDownToNone)
{
    EXPECT_NEAR(21, Contrast(RGB(0, 0, 0), RGB(255, 255, 255)), 0.001);
    EXPECT_NEAR(3.998, Contrast(RGB(255, 255, 255), RGB(255, 0, 0)), 0.001);
    EXPECT_EQ(1, Contrast(RGB(1, 2, 3), RGB(1, 2, 3)));
}

TEST(Contrast, TheDrawingsHaveTheColoursThatTextsAreMeasuredOn)
{
    for (const Drawn& drawn : Grounds)
    {
        const Bitmap bitmap = ReadBitmap(drawn.bitmap);
        EXPECT_EQ(drawn.ground, bitmap.At(bitmap.width / 2, bitmap.height / 2)) << drawn.bitmap;
    }
}

TEST(Contrast, EveryTextOfTheSkinCanBeRead)
{
    for (const Pair& text : Texts)
    {
        EXPECT_GE(Contrast(text.colour, text.ground), LeastForText) << text.what;
    }
}

TEST(Contrast, TheMarkOfTheFocusIsSeenOnEveryGround)
{
    for (const Pair& mark : Marks)
    {
        EXPECT_GE(Contrast(mark.colour, mark.ground), LeastForSigns) << mark.what;
    }
}

TEST(Contrast, TheIconsOfTheLogsAreSeenOnWhiteAndTheirSignsOnThem)
{
    for (const unsigned number : {IDB_LOG_ICONS, IDB_FIREWALL_ICONS})
    {
        const Bitmap strip = ReadBitmap(number);
        for (int icon = 0; icon < strip.width / IconWidth; ++icon)
        {
            EXPECT_GE(Contrast(BodyOf(strip, icon), SkinColour::Ground), LeastForSigns) << number << " icon " << icon;
        }
    }
}
