#include "tests/ui/framework/ui/kestrix/app/page/DetailPaneTest.h"

#include "tests/support/ImportPatch.h"

#include <algorithm>
#include <limits>
#include <vector>

extern "C" decltype(&::DrawTextW) __imp_DrawTextW;

// The template may have the link disabled; no log enables it before it is shown.
TEST_F(DetailPaneTest, AtTheStartTheLinkIsEnabledAndHidden)
{
    EXPECT_TRUE(IsLinkEnabled());
    for (const UINT hidden : {IDC_INFO_VALUE_0_LINK, IDC_INFO_VALUE_0_TEXT, IDC_ALLOW, IDC_ALLOW_LABEL})
    {
        EXPECT_FALSE(m_window.Shows(hidden)) << hidden;
    }
}

TEST_F(DetailPaneTest, EachKindHasItsWayOfTheFirstValue)
{
    const struct
    {
        const LogKind& kind;
        bool link;
        bool text;
        bool enabled;
        int rows;
    } cases[] = {
        {LinkKind, true, false, true, 1},
        {TextKind, false, true, true, 1},
        {TextOnlyKind, false, true, false, 1},
        {TallKind, false, true, true, 3},
    };

    for (const auto& expected : cases)
    {
        SCOPED_TRACE(static_cast<int>(expected.kind.firstInfo));
        m_pane.RemoveKind();
        EXPECT_FALSE(ShowsLink());
        EXPECT_FALSE(ShowsText());
        EXPECT_TRUE(IsLinkEnabled());
        ExpectFirstText(1);
        m_pane.SetKind(expected.kind);
        EXPECT_EQ(ShowsLink(), expected.link);
        EXPECT_EQ(ShowsText(), expected.text);
        EXPECT_EQ(IsLinkEnabled(), expected.enabled);
        ExpectFirstText(expected.rows);
    }
}

// The first value kept its place on the screen instead of that in the page: after the user had dragged the form, a
// purge or another log put it over the list.
TEST_F(DetailPaneTest, TheFirstValueKeepsItsPlaceInAPageThatHasBeenMoved)
{
    for (const LogKind* const kind : {&LinkKind, &TallKind, &TextKind, &TextOnlyKind})
    {
        SCOPED_TRACE(static_cast<int>(kind->firstInfo));
        const RECT before = m_window.GetWindowRect();
        m_window.MoveWindow({before.left + 60, before.top + 40, before.right + 60, before.bottom + 40});
        m_pane.RemoveKind();
        ExpectFirstText(1);
        m_pane.SetKind(*kind);
        ExpectFirstText(kind == &TallKind ? 3 : 1);
    }
}

// The order is that in which a screen reader tells the values.
TEST_F(DetailPaneTest, TheFirstValueKeepsItsPlaceInTheOrderOfTheControls)
{
    const HWND before = ::GetWindow(m_window.Item(IDC_INFO_VALUE_0_TEXT), GW_HWNDPREV);
    ASSERT_NE(before, nullptr);
    m_pane.SetKind(TallKind);
    EXPECT_EQ(::GetWindow(m_window.Item(IDC_INFO_VALUE_0_TEXT), GW_HWNDPREV), before);
    m_pane.RemoveKind();
    EXPECT_EQ(::GetWindow(m_window.Item(IDC_INFO_VALUE_0_TEXT), GW_HWNDPREV), before);
}

TEST_F(DetailPaneTest, ARowShowsItsCaptionWithItsValueOrNeither)
{
    m_pane.SetInfoText(6, L"old", {});
    m_pane.SetInfoRow(6, L"Caption", true);
    EXPECT_EQ(TextOf(IDC_INFO_LABEL_6), L"Caption");
    EXPECT_EQ(TextOf(IDC_INFO_VALUE_6), L"") << "a new caption clears the value";
    EXPECT_TRUE(m_window.Shows(IDC_INFO_LABEL_6));
    EXPECT_TRUE(m_window.Shows(IDC_INFO_VALUE_6));
    m_pane.SetInfoRow(6, L"", false);
    EXPECT_FALSE(m_window.Shows(IDC_INFO_LABEL_6));
    EXPECT_FALSE(m_window.Shows(IDC_INFO_VALUE_6));
}

TEST_F(DetailPaneTest, AValueHasItsTextAndItsTip)
{
    m_pane.SetInfoText(1, L"cut...", L"whole");
    EXPECT_EQ(TextOf(IDC_INFO_VALUE_1), L"cut...");
    EXPECT_EQ(TipOf(IDC_INFO_VALUE_1), L"whole");
    m_pane.SetInfoText(1, L"short", {});
    EXPECT_EQ(TipOf(IDC_INFO_VALUE_1), L"");
}

TEST_F(DetailPaneTest, TheFirstValueIsTheLinkOrTheTextThatWasSetLast)
{
    m_pane.SetInfoLink(L"threat", L"tip of the link");
    EXPECT_TRUE(ShowsLink());
    EXPECT_FALSE(ShowsText());
    EXPECT_EQ(m_pane.LinkText(), L"threat");
    EXPECT_EQ(TipOf(IDC_INFO_VALUE_0_LINK), L"tip of the link");
    m_pane.SetInfoText(0, L"unknown", L"tip of the text");
    EXPECT_FALSE(ShowsLink());
    EXPECT_TRUE(ShowsText());
    EXPECT_EQ(TextOf(IDC_INFO_VALUE_0_TEXT), L"unknown");
    EXPECT_EQ(TipOf(IDC_INFO_VALUE_0_TEXT), L"tip of the text");
}

TEST_F(DetailPaneTest, TheWholeTextTakesThePlaceOfTheThirdValueUntilThatIsShownAgain)
{
    m_pane.SetKind(LinkKind);
    m_pane.ShowWholeText(L"all of it");
    EXPECT_FALSE(m_window.Shows(IDC_INFO_VALUE_2));
    EXPECT_TRUE(m_window.Shows(IDC_INFO_VALUE_2_WHOLE));
    EXPECT_EQ(TextOf(IDC_INFO_VALUE_2_WHOLE), L"all of it");
    m_pane.ShowShortText();
    EXPECT_TRUE(m_window.Shows(IDC_INFO_VALUE_2));
    EXPECT_FALSE(m_window.Shows(IDC_INFO_VALUE_2_WHOLE));
}

TEST_F(DetailPaneTest, TheTabKeyComesToTheLinkOfAKindThatHasOneAndToEveryValueWithAText)
{
    const struct
    {
        const LogKind& kind;
        bool link;
    } cases[] = {
        {LinkKind, true}, {TextKind, false}, {TextOnlyKind, false}, {TallKind, false}, {LinkKind, true},
    };

    for (const auto& expected : cases)
    {
        SCOPED_TRACE(static_cast<int>(expected.kind.firstInfo));
        m_pane.SetKind(expected.kind);
        m_pane.SetInfoLink(L"threat", {});
        m_pane.SetInfoText(2, L"location", {});
        EXPECT_EQ(IsTabStop(IDC_INFO_VALUE_0_LINK), expected.link);
        EXPECT_TRUE(IsTabStop(IDC_INFO_VALUE_2));
        EXPECT_FALSE(IsTabStop(IDC_INFO_VALUE_3));
    }
}

TEST_F(DetailPaneTest, AKindWithoutAWholeTextOpensNoneAndLeavesARowHiddenThatItHides)
{
    m_pane.SetKind(TextKind);
    m_pane.SetInfoRow(2, {}, false);
    m_window.Item(IDC_INFO_VALUE_2_WHOLE).ShowWindow(SW_HIDE);
    m_pane.ShowWholeText(L"all of it");
    EXPECT_FALSE(m_window.Shows(IDC_INFO_VALUE_2_WHOLE));
    m_pane.ShowShortText();
    EXPECT_FALSE(m_window.Shows(IDC_INFO_VALUE_2));
}

TEST_F(DetailPaneTest, AClearedPaneHasNoTextsNoTipsAndNothingOfRules)
{
    m_pane.SetKind(LinkKind);
    m_pane.SetInfoText(0, L"text", L"tip");
    m_pane.SetInfoLink(L"link", L"tip");
    m_pane.SetInfoText(6, L"value", L"tip");
    m_pane.ShowWholeText(L"all of it");
    m_window.Item(IDC_ALLOW).ShowWindow(SW_SHOW);
    m_window.Item(IDC_ALLOW_LABEL).ShowWindow(SW_SHOW);
    m_pane.Clear();
    for (const UINT value : {IDC_INFO_VALUE_0_LINK, IDC_INFO_VALUE_0_TEXT, IDC_INFO_VALUE_6})
    {
        EXPECT_EQ(TextOf(value), L"") << value;
        EXPECT_EQ(TipOf(value), L"") << value;
    }
    for (const UINT hidden : {IDC_ALLOW, IDC_ALLOW_LABEL, IDC_INFO_VALUE_2_WHOLE})
    {
        EXPECT_FALSE(m_window.Shows(hidden)) << hidden;
    }
    EXPECT_TRUE(m_window.Shows(IDC_INFO_VALUE_2));
}

TEST_F(DetailPaneTest, ARuleThatIsMadeCannotBeMadeAgain)
{
    m_pane.DisableAllow();
    EXPECT_FALSE(m_window.Item(IDC_ALLOW).IsWindowEnabled());
}

namespace
{

// The number of pixels of a control that are not white.
int InkOf(const CWindow& control)
{
    const CClientDC dc(control);
    const RECT area = control.GetClientRect();
    int ink = 0;
    for (int y = 0; y < area.bottom; ++y)
    {
        for (int x = 0; x < area.right; ++x)
        {
            ink += ::GetPixel(dc, x, y) != RGB(255, 255, 255) ? 1 : 0;
        }
    }
    return ink;
}

// Paints a control white, as if it had no text.
void Whiten(const CWindow& control)
{
    const CClientDC dc(control);
    FillSolidRect(dc, control.GetClientRect(), RGB(255, 255, 255));
}

} // namespace

TEST_F(DetailPaneTest, ADrawnValueIsTheTextOfItsControlToo)
{
    m_pane.DrawInfoText(1, L"shown", L"the whole of it");
    EXPECT_EQ(TextOf(IDC_INFO_VALUE_1), L"shown");
    EXPECT_EQ(TipOf(IDC_INFO_VALUE_1), L"the whole of it");
}

TEST_F(DetailPaneTest, ADrawnValueStandsOnItsControlAndWipesWhatWasDrawnBefore)
{
    const CWindow value = m_window.Item(IDC_INFO_VALUE_1);
    m_pane.DrawInfoText(1, L"a long text that fills the line", {});
    Whiten(value);
    m_pane.DrawInfoText(1, L"a long text that fills the line", {});
    const int much = InkOf(value);
    EXPECT_GT(much, 0);
    m_pane.DrawInfoText(1, L"i", {});
    EXPECT_GT(InkOf(value), 0);
    EXPECT_LT(InkOf(value), much);
}

TEST_F(DetailPaneTest, ATallValueIsDrawnAndSetAndTheLinkIsHidden)
{
    m_pane.SetKind(TallKind);
    m_pane.DrawTallInfo(L"several words that do not fit into a single line of this control", 220);
    EXPECT_EQ(TextOf(IDC_INFO_VALUE_0_TEXT), L"several words that do not fit into a single line of this control");
    EXPECT_FALSE(ShowsLink());
    EXPECT_TRUE(ShowsText());
    EXPECT_GT(InkOf(m_window.Item(IDC_INFO_VALUE_0_TEXT)), 0);
}

namespace
{

struct DrawnText
{
    std::wstring text;
    SIZE room;
    UINT format;
};

std::vector<DrawnText> g_drawn;

int WINAPI NoteText(HDC, LPCWSTR text, int length, RECT* place, UINT format)
{
    g_drawn.push_back({{text, static_cast<std::size_t>(length)}, {place->right, place->bottom}, format});
    return 0;
}

} // namespace

TEST_F(DetailPaneTest, ATallValueIsDrawnInLinesThatMayGoBelowItsControl)
{
    m_pane.SetKind(TallKind);
    PaintFirstValue();
    g_drawn.clear();
    const ImportPatch<decltype(&::DrawTextW)> draw(__imp_DrawTextW, &NoteText);
    m_pane.DrawTallInfo(L"several words", 220);
    ASSERT_EQ(g_drawn.size(), 1u);
    EXPECT_EQ(g_drawn[0].text, L"several words");
    EXPECT_EQ(g_drawn[0].room.cx, Width);
    EXPECT_EQ(g_drawn[0].room.cy, 3 * Height + 220);
    EXPECT_EQ(g_drawn[0].format, static_cast<UINT>(DT_WORDBREAK));
}

// The number is a text of the language file. One near the largest made the bottom of the rectangle a negative number,
// and nothing was drawn; debug builds stopped there.
TEST_F(DetailPaneTest, ATallValueMayBeHigherThanAnyScreen)
{
    const ImportPatch<decltype(&::DrawTextW)> draw(__imp_DrawTextW, &NoteText);
    m_pane.SetKind(TallKind);
    for (const int pixels : {std::numeric_limits<int>::max(), std::numeric_limits<int>::max() - 10})
    {
        PaintFirstValue();
        g_drawn.clear();
        m_pane.DrawTallInfo(L"text", pixels);
        ASSERT_EQ(g_drawn.size(), 1u);
        EXPECT_GE(g_drawn[0].room.cy, std::numeric_limits<LONG>::max() - 10) << pixels;
    }
}

TEST_F(DetailPaneTest, TheAllowButtonIsShownEnabledWithItsCaptionAndHiddenWithIt)
{
    m_pane.DisableAllow();
    m_pane.ShowAllowRule(true);
    EXPECT_TRUE(m_window.Shows(IDC_ALLOW));
    EXPECT_TRUE(m_window.Shows(IDC_ALLOW_LABEL));
    EXPECT_TRUE(m_window.Item(IDC_ALLOW).IsWindowEnabled());
    m_pane.ShowAllowRule(false);
    EXPECT_FALSE(m_window.Shows(IDC_ALLOW));
    EXPECT_FALSE(m_window.Shows(IDC_ALLOW_LABEL));
}
