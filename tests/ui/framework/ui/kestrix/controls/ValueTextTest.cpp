// The value that looks as a label and lets the user select in it: its looks, its two texts, its clicks.

#include "framework/ui/kestrix/controls/ValueText.h"

#include "tests/support/HeldKeys.h"
#include "tests/support/Picture.h"
#include "tests/ui/framework/ui/kestrix/controls/Ground.h"

#include <utility>

namespace
{

constexpr int ValueId = 1008;
constexpr RECT ValuePlace{20, 20, 120, 37};
const std::wstring LongPath = L"C:\\Users\\someone\\a folder with a long name\\program.exe";

class ValueTextTest : public ::testing::Test
{
protected:
    ValueTextTest()
    {
        m_ground.Show();
        MakeEdit(ES_AUTOHSCROLL, ValuePlace);
    }

    void MakeEdit(DWORD style, const RECT& place)
    {
        CEdit edit;
        edit.Create(WS_CHILD | WS_VISIBLE | ES_READONLY | style, place, m_ground, ValueId);
        edit.SetFont(m_ground.m_font);
        ASSERT_TRUE(m_value.SubclassWindow(edit.Detach())); // the ground's child, which goes with it
    }

    bool IsTabStop() const { return (m_value.GetStyle() & WS_TABSTOP) != 0; }

    void Select(int first, int end) const
    {
        m_value.SendMessage(EM_SETSEL, static_cast<WPARAM>(first), static_cast<LPARAM>(end));
    }

    std::pair<DWORD, DWORD> Selection() const
    {
        DWORD first = 0;
        DWORD end = 0;
        m_value.SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&end));
        return {first, end};
    }

    void Focus() { m_value.SetFocus(); }

    void Blur() { m_ground.SetFocus(); }

    Ground m_ground;
    CValueText m_value;
};

} // namespace

TEST_F(ValueTextTest, ItLooksAsALabelOfTheSystemPixelByPixel)
{
    const struct
    {
        const char* name;
        DWORD editStyle;
        DWORD labelStyle;
        UINT format;
        std::wstring text;
        RECT place;
    } cases[] = {
        {"a short text", ES_AUTOHSCROLL, SS_ENDELLIPSIS, CValueText::OneLine | DT_END_ELLIPSIS, L"short & sweet",
         ValuePlace},
        {"dots at the end", ES_AUTOHSCROLL, SS_ENDELLIPSIS, CValueText::OneLine | DT_END_ELLIPSIS, LongPath,
         ValuePlace},
        {"dots in a path", ES_AUTOHSCROLL, SS_PATHELLIPSIS, CValueText::OneLine | DT_PATH_ELLIPSIS, LongPath,
         ValuePlace},
        {"several lines",
         ES_MULTILINE,
         0,
         DT_WORDBREAK | DT_EXPANDTABS | DT_NOPREFIX,
         L"several words\tthat do not fit into a single line",
         {20, 20, 120, 71}},
        {"no text", ES_AUTOHSCROLL, SS_ENDELLIPSIS, CValueText::OneLine | DT_END_ELLIPSIS, L"", ValuePlace},
    };

    for (const auto& each : cases)
    {
        SCOPED_TRACE(each.name);
        m_value.DestroyWindow();
        MakeEdit(each.editStyle, each.place);
        m_value.SetLabelFormat(each.format);
        m_value.SetTexts(each.text, {});
        const Picture value = PictureOf(m_value);
        m_value.DestroyWindow();
        CStatic label;
        label.Create(each.text, WS_CHILD | WS_VISIBLE | SS_NOPREFIX | each.labelStyle, each.place, m_ground, ValueId);
        label.SetFont(m_ground.m_font);
        EXPECT_EQ(value, PictureOf(label));
    }
}

TEST_F(ValueTextTest, WithTheKeyboardItShowsTheWholeOfATextThatIsCut)
{
    m_value.SetTexts(L"C:\\Users...", LongPath);
    EXPECT_EQ(m_value.GetWindowText(), L"C:\\Users...");
    EXPECT_EQ(m_value.WholeText(), LongPath);
    Focus();
    EXPECT_EQ(m_value.GetWindowText(), LongPath);
    Blur();
    EXPECT_EQ(m_value.GetWindowText(), L"C:\\Users...");
    EXPECT_EQ(m_value.WholeText(), LongPath);
}

TEST_F(ValueTextTest, TextsThatComeWhileItHasTheKeyboardAreShownWholeToo)
{
    m_value.SetTexts(L"before", {});
    Focus();
    m_value.SetTexts(L"C:\\Users...", LongPath);
    EXPECT_EQ(m_value.GetWindowText(), LongPath);
    m_value.SetTexts(L"after", L"after");
    EXPECT_EQ(m_value.GetWindowText(), L"after");
    Blur();
    EXPECT_EQ(m_value.GetWindowText(), L"after");
}

TEST_F(ValueTextTest, TheSelectionGoesWithTheKeyboard)
{
    m_value.SetWindowText(LongPath);
    Focus();
    Select(3, 8);
    Blur();
    EXPECT_EQ(Selection(), std::make_pair(DWORD{0}, DWORD{0}));
}

TEST_F(ValueTextTest, ATextFromElsewhereIsAWholeOne)
{
    m_value.SetTexts(L"C:\\Users...", LongPath);
    m_value.SetWindowText(L"another");
    EXPECT_EQ(m_value.WholeText(), L"another");
    Focus();
    EXPECT_EQ(m_value.GetWindowText(), L"another");
}

TEST_F(ValueTextTest, TheTabKeyComesToOneWithATextAndSelectsAllOfIt)
{
    EXPECT_FALSE(IsTabStop());
    m_value.SetTexts(L"C:\\Users...", LongPath);
    EXPECT_TRUE(IsTabStop());
    Select(0, -1); // as the system does it for the Tab key, before
    Focus();
    EXPECT_EQ(Selection(), (std::pair<DWORD, DWORD>(0, static_cast<DWORD>(LongPath.size()))));
    EXPECT_EQ(m_value.TextToCopy(), LongPath);
    m_value.SetTexts({}, {});
    EXPECT_FALSE(IsTabStop());
}

TEST_F(ValueTextTest, WhatIsSelectedIsWhatIsCopiedUntilTheKeyboardGoes)
{
    m_value.SetTexts(L"C:\\Users...", LongPath);
    Focus();
    EXPECT_EQ(m_value.TextToCopy(), LongPath) << "nothing is selected";
    Select(3, 8);
    EXPECT_EQ(m_value.TextToCopy(), L"Users");
    Blur();
    EXPECT_EQ(m_value.TextToCopy(), LongPath);
    EXPECT_EQ(Selection(), (std::pair<DWORD, DWORD>(0, 0)));
}

TEST_F(ValueTextTest, TheMouseSelectsAPartOfIt)
{
    m_value.SetTexts(LongPath, {});
    const LPARAM from = m_value.SendMessage(EM_POSFROMCHAR, 3);
    const LPARAM to = m_value.SendMessage(EM_POSFROMCHAR, 8);
    m_value.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, from);
    m_value.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, to);
    m_value.SendMessage(WM_LBUTTONUP, 0, to);
    EXPECT_EQ(m_value.TextToCopy(), L"Users");
    EXPECT_EQ(::GetFocus(), m_value.GetSafeHwnd());
}

TEST_F(ValueTextTest, TheShiftAndArrowKeysSelectInIt)
{
    m_value.SetTexts(LongPath, {});
    Focus();
    const HeldKeys shift{VK_SHIFT};
    for (int i = 0; i < 3; ++i)
    {
        m_value.SendMessage(WM_KEYDOWN, VK_RIGHT, 1);
    }
    EXPECT_EQ(m_value.TextToCopy(), L"C:\\");
}

TEST_F(ValueTextTest, NobodyWritesIntoIt)
{
    m_value.SetTexts(L"text", {});
    Focus();
    m_value.SendMessage(WM_CHAR, L'x', 1);
    m_value.SendMessage(WM_KEYDOWN, VK_DELETE, 1);
    EXPECT_EQ(m_value.GetWindowText(), L"text");
}

TEST_F(ValueTextTest, AClickableOneTellsOfAPressAndIsNotSelectedIn)
{
    m_value.SetTexts(LongPath, {});
    m_value.SetClickable(true);
    Blur();
    m_ground.m_arrReached.clear();
    m_value.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    EXPECT_EQ(m_ground.FirstOf(WM_COMMAND).wParam, static_cast<WPARAM>(MAKEWPARAM(ValueId, STN_CLICKED)));
    EXPECT_NE(::GetFocus(), m_value.GetSafeHwnd());
    m_value.SetClickable(false);
    m_ground.m_arrReached.clear();
    m_value.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    m_value.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
    EXPECT_NE(m_ground.FirstOf(WM_COMMAND).wParam, static_cast<WPARAM>(MAKEWPARAM(ValueId, STN_CLICKED)));
    EXPECT_EQ(::GetFocus(), m_value.GetSafeHwnd());
}

TEST_F(ValueTextTest, AClickableOneStaysALabelWithTheKeyboard)
{
    m_value.SetTexts(L"C:\\Users...", LongPath);
    m_value.SetClickable(true);
    const Picture label = PictureOf(m_value);
    Select(0, 4);
    Focus();
    EXPECT_EQ(m_value.GetWindowText(), L"C:\\Users...");
    EXPECT_EQ(m_value.TextToCopy(), LongPath) << "nobody sees what is selected";
    EXPECT_EQ(PictureOf(m_value), label);
}

TEST_F(ValueTextTest, ItsContextMenuIsThatOfTheParent)
{
    m_ground.m_arrReached.clear();
    m_value.SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(m_value.GetSafeHwnd()), MAKELPARAM(-1, -1));
    ASSERT_EQ(m_ground.CountOf(WM_CONTEXTMENU), 1);
    EXPECT_EQ(m_ground.FirstOf(WM_CONTEXTMENU).wParam, reinterpret_cast<WPARAM>(m_value.GetSafeHwnd()));
    EXPECT_EQ(m_ground.FirstOf(WM_CONTEXTMENU).lParam, MAKELPARAM(-1, -1));
}

TEST_F(ValueTextTest, OnlyAClickableOneIsClickedByTheSpaceKey)
{
    for (const bool clickable : {true, false})
    {
        m_value.SetTexts(L"text", {});
        m_value.SetClickable(clickable);
        m_value.SendMessage(WM_KEYUP, VK_SPACE);
        MSG message{};
        EXPECT_EQ(::PeekMessageW(&message, m_ground, WM_COMMAND, WM_COMMAND, PM_REMOVE) != FALSE, clickable);
    }
}

TEST_F(ValueTextTest, APressBesideATextIsOneOnTheDialog)
{
    m_value.SetTexts({}, {});
    EXPECT_EQ(m_value.SendMessage(WM_NCHITTEST), HTTRANSPARENT);
    m_value.SetTexts(L"text", {});
    const RECT place = m_value.GetWindowRect();
    const LPARAM point = MAKELPARAM(place.left + 2, place.top + 2);
    EXPECT_EQ(m_value.SendMessage(WM_NCHITTEST, 0, point), HTCLIENT);
}

// The system's edit spaces letters in its own way, so the first one is looked at.
TEST_F(ValueTextTest, TheTextStandsInTheSamePlaceWithTheKeyboardAndWithout)
{
    constexpr RECT firstLetter{0, 0, 4, 17};
    m_value.SetTexts(L"text", {});
    const Picture label = PictureOf(m_value).Part(firstLetter);
    Focus();
    ::HideCaret(m_value);
    EXPECT_EQ(PictureOf(m_value).Part(firstLetter), label);
    EXPECT_NE(label, Picture(4, 17, label.At(3, 16))) << "a letter stands there";
}
