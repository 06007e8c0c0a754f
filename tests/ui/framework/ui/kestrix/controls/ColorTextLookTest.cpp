#include "tests/ui/framework/ui/kestrix/controls/ColorTextTest.h"

#include "tests/support/ImportPatch.h"
#include "tests/ui/platform/dialog/TestWindows.h"

#include <optional>

extern "C" decltype(&::CreateFontIndirectW) __imp_CreateFontIndirectW;

namespace
{

// The last font that the program made while the object lives.
class FontListener
{
public:
    FontListener() : m_patch(__imp_CreateFontIndirectW, &Listen)
    {
        s_last.reset();
        s_original = m_patch.Original();
    }

    static const std::optional<LOGFONTW>& Last() { return s_last; }

private:
    static HFONT WINAPI Listen(const LOGFONTW* font)
    {
        s_last = *font;
        return s_original(font);
    }

    static inline std::optional<LOGFONTW> s_last;
    static inline decltype(&::CreateFontIndirectW) s_original = nullptr;

    ImportPatch<decltype(&::CreateFontIndirectW)> m_patch;
};

class ColorTextLookTest : public ColorTextTest
{
protected:
    // The font that painting the label makes.
    LOGFONTW MadeFont()
    {
        const FontListener listener;
        m_ground.PaintNow();
        return listener.Last().value();
    }

    std::wstring FaceNameMade(const std::wstring& face)
    {
        m_text.SetFontLook({.faceName = face});
        return MadeFont().lfFaceName;
    }
};

} // namespace

TEST_F(ColorTextLookTest, AFilledLabelLeavesTheGroundAlone)
{
    m_text.SetBackground(RGB(255, 255, 255), true);
    Seen();
    m_text.SetTextColour(RGB(0, 0, 0));
    EXPECT_TRUE(IsInvalid());
    EXPECT_FALSE(GetUpdateRect(m_ground, nullptr, FALSE));
    m_text.SetBackground(RGB(255, 255, 255), false);
    EXPECT_TRUE(IsGroundInvalidUnderTheText());
}

TEST_F(ColorTextLookTest, TheTextIsThatOfTheWindowFromTheBeginning)
{
    EXPECT_EQ(m_text.GetText(), L"link");
    m_text.SetText(L"other");
    EXPECT_EQ(m_text.GetText(), L"other");
    EXPECT_EQ(m_text.GetWindowText(), L"other");
    m_ground.SetDlgItemText(Id, L"third");
    EXPECT_EQ(m_text.GetText(), L"third");
}

TEST_F(ColorTextLookTest, AChangedTextLeavesNothingOfTheOldOneBehind)
{
    m_text.SetText(L"wide old text");
    Seen();
    m_text.SetText(L"new");
    ASSERT_TRUE(WaitUntil([this] { return !IsInvalid() && !GetUpdateRect(m_ground, nullptr, FALSE); }));
    const Picture shown = OnScreen();
    m_ground.PaintNow();
    const Picture again = OnScreen();
    EXPECT_TRUE(Shows(again, TextColour));
    EXPECT_TRUE(shown == again);
}

TEST_F(ColorTextLookTest, AChangedTextPaintsTheLabelAndTheGroundUnderIt)
{
    ASSERT_FALSE(IsInvalid());
    m_text.SetText(L"new");
    EXPECT_TRUE(IsInvalid());
    EXPECT_TRUE(IsGroundInvalidUnderTheText());
}

TEST_F(ColorTextLookTest, AHiddenLabelStaysHiddenWhenItsTextChanges)
{
    m_text.ShowWindow(SW_HIDE);
    m_text.SetText(L"new");
    EXPECT_FALSE(m_text.IsWindowVisible());
    EXPECT_EQ(m_text.GetText(), L"new");
}

TEST_F(ColorTextLookTest, FocusAndEnablingPaintTheGroundUnderTheLabelAtOnce)
{
    for (const UINT message : {WM_SETFOCUS, WM_KILLFOCUS, WM_ENABLE})
    {
        m_ground.m_arrReached.clear();
        m_text.SendMessage(message);
        EXPECT_EQ(m_ground.CountOf(WM_ERASEBKGND), 1) << message;
        EXPECT_FALSE(GetUpdateRect(m_ground, nullptr, FALSE)) << message;
    }
}

TEST_F(ColorTextLookTest, TheFontIsTheParentsWithTheLooksOfTheLabel)
{
    LOGFONTW font = MadeFont();
    EXPECT_EQ(font.lfHeight, 12);
    EXPECT_EQ(font.lfWidth, 0);
    EXPECT_EQ(font.lfWeight, 400);
    EXPECT_FALSE(font.lfItalic || font.lfUnderline || font.lfStrikeOut);
    EXPECT_STREQ(font.lfFaceName, L"Liberation Sans");
    EXPECT_EQ(font.lfQuality, NONANTIALIASED_QUALITY);

    m_text.SetFontLook({.height = 20, .weight = 700, .italic = true, .underline = true, .strikeOut = true});
    font = MadeFont();
    EXPECT_EQ(font.lfHeight, 20);
    EXPECT_EQ(font.lfWeight, 700);
    EXPECT_TRUE(font.lfItalic && font.lfUnderline && font.lfStrikeOut);
}

TEST_F(ColorTextLookTest, ATurnedWideFontOfTheParentBecomesLevelAndOfUsualWidth)
{
    LOGFONTW turned{};
    ASSERT_TRUE(m_ground.m_font.GetLogFont(turned));
    turned.lfWidth = 9;
    turned.lfEscapement = 900;
    turned.lfOrientation = 900;
    CFont font;
    ASSERT_TRUE(font.CreateFontIndirect(turned));
    m_ground.SetFont(font);
    const LOGFONTW made = MadeFont();
    EXPECT_EQ(made.lfWidth, 0);
    EXPECT_EQ(made.lfEscapement, 0);
    EXPECT_EQ(made.lfOrientation, 0);
}

TEST_F(ColorTextLookTest, AFaceNameOf31CharactersIsUsed)
{
    const std::wstring longest(31, L'f');
    EXPECT_EQ(FaceNameMade(longest), longest);
    EXPECT_EQ(FaceNameMade(L"f"), L"f");
}

TEST_F(ColorTextLookTest, AFaceNameOf32CharactersOrMoreIsIgnored)
{
    EXPECT_EQ(FaceNameMade(std::wstring(32, L'f')), L"Liberation Sans");
    EXPECT_EQ(FaceNameMade(std::wstring(200, L'f')), L"Liberation Sans");
    EXPECT_EQ(FaceNameMade({}), L"Liberation Sans");
}

TEST_F(ColorTextLookTest, AParentWithoutAFontLendsTheSystems)
{
    LOGFONTW system{};
    GetObjectW(GetStockObject(SYSTEM_FONT), sizeof system, &system);
    m_ground.SetFont(nullptr);
    EXPECT_STREQ(MadeFont().lfFaceName, system.lfFaceName);
}

TEST_F(ColorTextLookTest, AGivenFontIsUsedAsItIs)
{
    m_text.SetTextFont(&m_ground.m_font);
    const FontListener listener;
    m_ground.PaintNow();
    EXPECT_FALSE(listener.Last().has_value());
}

TEST_F(ColorTextLookTest, EverySetterPaintsTheLabelAnew)
{
    const auto paintsAnew = [this](auto set)
    {
        Seen();
        set();
        return IsInvalid();
    };
    EXPECT_TRUE(paintsAnew([this] { m_text.SetTextColour(0); }));
    EXPECT_TRUE(paintsAnew([this] { m_text.SetHoverColour(0); }));
    EXPECT_TRUE(paintsAnew([this] { m_text.EnableHover(true); }));
    EXPECT_TRUE(
        paintsAnew([this] { m_text.SetAlignment(CColorText::Horizontal::Left, CColorText::Vertical::Bottom); }));
    EXPECT_TRUE(paintsAnew([this] { m_text.SetFontLook({.height = 20}); }));
    EXPECT_TRUE(paintsAnew([this] { m_text.SetTextFont(&m_ground.m_font); }));
    EXPECT_TRUE(paintsAnew([this] { m_text.SetBackground(0, true); }));
    EXPECT_TRUE(paintsAnew([this] { m_text.SetFrame(0, true); }));
    EXPECT_TRUE(paintsAnew([this] { m_text.SetIcon(nullptr, {}); }));
    EXPECT_TRUE(paintsAnew([this] { m_text.ShowFocus(true); }));
}

TEST_F(ColorTextLookTest, AnObjectWithoutAWindowTakesItsSettings)
{
    CColorText later;
    later.SetTextColour(RGB(0, 128, 0));
    later.SetText(L"nobody holds this");
    EXPECT_EQ(later.GetText(), L"");
    ASSERT_TRUE(later.Create(L"later", LinkStyle, {20, 100, 180, 130}, m_ground, Id + 1));
    EXPECT_EQ(later.GetText(), L"later");
    EXPECT_TRUE(Shows(Seen(), RGB(0, 128, 0)));
}

TEST_F(ColorTextLookTest, AThousandLabelsLeaveNothingBehind)
{
    const auto useOnce = [this]
    {
        CColorText text;
        text.Create(L"one of many", LinkStyle, {20, 100, 180, 130}, m_ground, Id + 1);
        text.SetBackground(RGB(255, 255, 255), true);
        text.SetFrame(RGB(0, 0, 0), true);
        text.UpdateWindow();
    };
    ExpectAThousandToLeaveNothing(useOnce);
}
