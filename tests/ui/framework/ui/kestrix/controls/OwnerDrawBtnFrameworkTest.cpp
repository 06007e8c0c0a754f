#include "framework/ui/kestrix/controls/OwnerDrawBtnFramework.h"

#include "resource/resource.h"
#include "tests/support/ChangedLanguageFile.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/LanguageFile.h"
#include "tests/ui/framework/ui/kestrix/controls/ButtonStage.h"

#include <gtest/gtest.h>

#include <memory>

extern "C" decltype(&::TrackMouseEvent) __imp_TrackMouseEvent;
extern "C" decltype(&::SetCursor) __imp_SetCursor;

namespace
{

// The least that makes the base a button: it keeps how it was asked to draw.
class PlainButton : public COwnerDrawBtnFramework
{
public:
    void DrawOwnerButton(HDC dc, const RECT& rect, const OwnerButtonState& state) override
    {
        m_drawn.push_back(state);
        DrawBackground(dc, rect, state);
    }

    void DrawBackground(HDC dc, const RECT& rect, const OwnerButtonState&) override
    {
        FillSolidRect(dc, rect, m_crBackground);
    }

    std::vector<OwnerButtonState> m_drawn;
};

std::wstring Told(const OwnerButtonState& state)
{
    return Note(state.selected, state.focus, state.disabled, state.isDefault, state.hover);
}

class OwnerDrawBtnFrameworkTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_button.Make(m_stage)); }

    // The state in which the button was drawn last.
    std::wstring LastDrawn()
    {
        EXPECT_FALSE(m_button.m_drawn.empty());
        return m_button.m_drawn.empty() ? L"" : Told(m_button.m_drawn.back());
    }

    ButtonStage m_stage;
    OpenButton<PlainButton> m_button;
};

} // namespace

TEST_F(OwnerDrawBtnFrameworkTest, StartsWithTheSystemsColoursAndNoState)
{
    EXPECT_EQ(m_button.m_crBackground, GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(m_button.m_crText, GetSysColor(COLOR_BTNTEXT));
    EXPECT_EQ(Told(m_button.m_State), L"0 0 0 0 0");
    EXPECT_TRUE(m_button.m_bDrawFocus);
    EXPECT_FALSE(m_button.m_bFlat);
    EXPECT_FALSE(m_button.m_bTransparent);
    EXPECT_EQ(m_button.m_nIconWidth, 0);
    EXPECT_EQ(m_button.m_nIconHeight, 0);
}

TEST_F(OwnerDrawBtnFrameworkTest, EveryKindOfButtonBecomesAnOwnerDrawnOne)
{
    for (const DWORD kind : {BS_PUSHBUTTON, BS_DEFPUSHBUTTON, BS_CHECKBOX, BS_RADIOBUTTON})
    {
        OpenButton<PlainButton> button;
        ASSERT_TRUE(button.Make(m_stage, {}, kind));
        EXPECT_EQ(button.GetStyle() & BS_TYPEMASK, static_cast<DWORD>(BS_OWNERDRAW)) << kind;
    }
}

TEST_F(OwnerDrawBtnFrameworkTest, TheWindowStaysAButtonWithItsTextForScreenReaders)
{
    m_button.SetWindowText(L"Close");
    std::wstring name(16, L'\0');
    name.resize(static_cast<std::size_t>(GetClassNameW(m_button, name.data(), 16)));
    EXPECT_EQ(name, WC_BUTTONW);
    EXPECT_EQ(m_button.GetWindowText(), L"Close");
    EXPECT_NE(m_button.SendMessage(WM_GETDLGCODE) & DLGC_BUTTON, 0);
}

TEST_F(OwnerDrawBtnFrameworkTest, AFlatButtonShowsNoFocusUntilItIsToldTo)
{
    OpenButton<PlainButton> button;
    ASSERT_TRUE(button.Make(m_stage, {}, BS_FLAT));
    EXPECT_TRUE(button.m_bFlat);
    EXPECT_FALSE(button.m_bDrawFocus);
    button.SetFocusDrawn(true);
    EXPECT_TRUE(button.m_bDrawFocus);
}

TEST_F(OwnerDrawBtnFrameworkTest, ATransparentWindowIsNoted)
{
    OpenButton<PlainButton> button;
    ASSERT_TRUE(button.Make(m_stage, {}, 0, WS_EX_TRANSPARENT));
    EXPECT_TRUE(button.m_bTransparent);
}

TEST_F(OwnerDrawBtnFrameworkTest, DrawItemSplitsTheState)
{
    const std::pair<UINT, const wchar_t*> expected[] = {{ODS_SELECTED, L"1 0 0 0 0"},
                                                        {ODS_FOCUS, L"0 1 0 0 0"},
                                                        {ODS_DISABLED, L"0 0 1 0 0"},
                                                        {ODS_DEFAULT, L"0 0 0 1 0"},
                                                        {ODS_SELECTED | ODS_FOCUS | ODS_CHECKED, L"1 1 0 0 0"},
                                                        {0, L"0 0 0 0 0"}};
    for (const auto& [bits, told] : expected)
    {
        PictureInState(m_button, bits);
        EXPECT_EQ(LastDrawn(), told) << bits;
    }
}

TEST_F(OwnerDrawBtnFrameworkTest, TheSystemsRequestReachesTheButtonThroughItsParent)
{
    m_button.RedrawWindow();
    EXPECT_EQ(LastDrawn(), L"0 0 0 0 0");
    m_button.EnableWindow(false);
    m_button.RedrawWindow();
    EXPECT_EQ(LastDrawn(), L"0 0 1 0 0");
}

TEST_F(OwnerDrawBtnFrameworkTest, ThePictureOfAPrintIsDrawnToo)
{
    m_button.SetBackgroundColour(RGB(1, 2, 3));
    const Picture picture =
        Reference([&](HDC dc) { m_button.SendMessage(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), 0); });
    EXPECT_EQ(picture.At(40, 15), RGB(1, 2, 3));
}

TEST_F(OwnerDrawBtnFrameworkTest, TheFirstMoveSetsHoverAndAsksToBeToldWhenThePointerLeaves)
{
    static std::vector<std::wstring> s_asked;
    s_asked.clear();
    const ImportPatch<decltype(&::TrackMouseEvent)> patch(
        __imp_TrackMouseEvent,
        [](TRACKMOUSEEVENT* track) -> BOOL
        {
            s_asked.push_back(Note(track->cbSize == sizeof *track, track->dwFlags, track->hwndTrack != nullptr));
            return TRUE;
        });
    m_button.RedrawWindow();
    const int refreshes = m_button.m_nRefreshes;
    MoveMouseOver(m_button);
    EXPECT_EQ(s_asked, Notes{L"1 2 1"});
    EXPECT_EQ(m_button.m_nRefreshes, refreshes + 1);
    EXPECT_EQ(LastDrawn(), L"0 0 0 0 1");
    MoveMouseOver(m_button);
    EXPECT_EQ(s_asked.size(), 1u) << "asked once";
    EXPECT_EQ(m_button.m_nRefreshes, refreshes + 1);
}

TEST_F(OwnerDrawBtnFrameworkTest, LeavingEndsHoverAndShowsIt)
{
    MoveMouseOver(m_button);
    const int refreshes = m_button.m_nRefreshes;
    m_button.SendMessage(WM_MOUSELEAVE);
    EXPECT_EQ(m_button.m_nRefreshes, refreshes + 1);
    EXPECT_EQ(LastDrawn(), L"0 0 0 0 0");
}

// With the system's own pointer: no message is sent by the test.
TEST_F(OwnerDrawBtnFrameworkTest, MovingThePointerOffAButtonEndsTheHotStateEvenIfNoFurtherMouseMoveArrives)
{
    m_stage.SetWindowPos(HWND_TOPMOST, {}, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    const RECT place = m_button.GetWindowRect();
    ASSERT_TRUE(WaitUntil(
        [&]
        {
            SetCursorPos((place.left + place.right) / 2, (place.top + place.bottom) / 2);
            return m_button.m_State.hover != FALSE;
        }));
    EXPECT_EQ(LastDrawn(), L"0 0 0 0 1");
    SetCursorPos(0, 0);
    EXPECT_TRUE(WaitUntil([&] { return !m_button.m_State.hover; }));
    EXPECT_EQ(LastDrawn(), L"0 0 0 0 0");
}

TEST_F(OwnerDrawBtnFrameworkTest, WithoutAnybodyToTellTheLeavingThereIsNoHover)
{
    const ImportPatch<decltype(&::TrackMouseEvent)> patch(__imp_TrackMouseEvent,
                                                          [](TRACKMOUSEEVENT*) -> BOOL { return FALSE; });
    MoveMouseOver(m_button);
    EXPECT_FALSE(m_button.m_State.hover);
}

TEST_F(OwnerDrawBtnFrameworkTest, AMoveWithTheButtonHeldIsIgnoredWhileHoverIsOff)
{
    MoveMouseOver(m_button, MK_LBUTTON);
    EXPECT_FALSE(m_button.m_State.hover);
    MoveMouseOver(m_button, MK_RBUTTON);
    EXPECT_TRUE(m_button.m_State.hover);
}

TEST_F(OwnerDrawBtnFrameworkTest, AMoveWithTheButtonHeldGoesToTheDefaultWhileHoverIsOn)
{
    MoveMouseOver(m_button);
    m_button.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    ASSERT_NE(m_button.SendMessage(BM_GETSTATE) & BST_PUSHED, 0);
    m_button.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(-20, 5));
    EXPECT_EQ(m_button.SendMessage(BM_GETSTATE) & BST_PUSHED, 0) << "the system lets the button up outside";
    m_button.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(-20, 5));
    EXPECT_EQ(m_stage.m_nClicks, 0);
}

TEST_F(OwnerDrawBtnFrameworkTest, RefreshFollowsFocusClicksAndEnabling)
{
    const std::vector<std::function<void()>> changes{
        [&] { m_button.SendMessage(WM_SETFOCUS); },
        [&] { m_button.SendMessage(WM_KILLFOCUS); },
        [&] { m_button.SendMessage(WM_ENABLE, FALSE); },
        [&] { m_button.SendMessage(WM_ENABLE, TRUE); },
        [&] { m_button.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(5, 5)); },
        [&] { m_button.SendMessage(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5)); },
    };
    for (std::size_t i = 0; i < changes.size(); ++i)
    {
        const int before = m_button.m_nRefreshes;
        changes[i]();
        EXPECT_EQ(m_button.m_nRefreshes, before + 1) << i;
    }
    const int before = m_button.m_nRefreshes;
    m_button.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5)); // brings the focus too
    EXPECT_GT(m_button.m_nRefreshes, before);
}

TEST_F(OwnerDrawBtnFrameworkTest, AClickIsToldToTheParentAndADoubleClickAsOne)
{
    Click(m_button);
    EXPECT_EQ(m_stage.m_nClicks, 1);
    m_button.SendMessage(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5));
    EXPECT_EQ(m_stage.m_nDoubleClicks, 1);
}

TEST_F(OwnerDrawBtnFrameworkTest, TheSpaceKeyClicks)
{
    m_button.SendMessage(WM_KEYDOWN, VK_SPACE);
    m_button.RedrawWindow();
    EXPECT_EQ(LastDrawn().substr(0, 1), L"1");
    m_button.SendMessage(WM_KEYUP, VK_SPACE);
    EXPECT_EQ(m_stage.m_nClicks, 1);
}

TEST_F(OwnerDrawBtnFrameworkTest, AClickMayEndTheWindow)
{
    m_stage.m_onClick = [&] { m_button.DestroyWindow(); };
    Click(m_button);
    EXPECT_EQ(m_stage.m_nClicks, 1);
    EXPECT_EQ(m_button.GetSafeHwnd(), nullptr);
    EXPECT_FALSE(m_button.m_bRefreshedWithoutWindow);
}

TEST_F(OwnerDrawBtnFrameworkTest, AClickMayEndTheButtonItself)
{
    static bool s_gone;
    static bool s_refreshedAfterwards;

    class MortalButton : public OpenButton<PlainButton>
    {
    public:
        ~MortalButton() { s_gone = true; }

        void RefreshButton() override { s_refreshedAfterwards = s_gone; }
    };

    s_gone = false;
    s_refreshedAfterwards = false;
    auto button = std::make_unique<MortalButton>();
    m_button.DestroyWindow();
    ASSERT_TRUE(button->Make(m_stage));
    m_stage.m_onClick = [&] { button.reset(); };
    Click(*button);
    EXPECT_TRUE(s_gone);
    EXPECT_FALSE(s_refreshedAfterwards);
}

// The pointer moves over the button, which sets its own cursor or leaves the system's.
class OwnCursorTest : public OwnerDrawBtnFrameworkTest
{
protected:
    // The cursors that the button sets when the system asks for one.
    std::vector<HCURSOR> CursorsSet()
    {
        static std::vector<HCURSOR> s_set;
        s_set.clear();
        const ImportPatch<decltype(&::SetCursor)> patch(__imp_SetCursor,
                                                        [](HCURSOR cursor) -> HCURSOR
                                                        {
                                                            s_set.push_back(cursor);
                                                            return nullptr;
                                                        });
        m_nAnswer = m_button.SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(m_button.GetSafeHwnd()),
                                         MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return s_set;
    }

    LRESULT m_nAnswer = -1; // of the button when it was asked last
};

// A language file that names its cursors and has no image of them.
class ImagelessFile : public ChangedLanguageFile
{
public:
    ImagelessFile() { RemoveAll(RT_CURSOR); }
};

TEST_F(OwnCursorTest, IsShownUnderHoverAlone)
{
    const LanguageFile language;
    ASSERT_TRUE(m_button.SetOwnCursor(IDC_HAND_CURSOR));
    EXPECT_TRUE(CursorsSet().empty()) << "no hover";
    MoveMouseOver(m_button);
    const std::vector<HCURSOR> shown = CursorsSet();
    EXPECT_EQ(m_nAnswer, 1);
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_NE(shown.front(), nullptr);
    EXPECT_EQ(shown.front(), m_button.m_hCursor.get());
    EXPECT_EQ(shown, CursorsSet()) << "loaded once";
    m_button.SendMessage(WM_MOUSELEAVE);
    EXPECT_TRUE(CursorsSet().empty());
}

TEST_F(OwnCursorTest, ThatIsNotInTheLanguageFileLeavesTheSystems)
{
    EXPECT_FALSE(m_button.SetOwnCursor(9999));
    MoveMouseOver(m_button);
    EXPECT_TRUE(CursorsSet().empty());
}

TEST_F(OwnCursorTest, ThatHasNoImageLeavesTheSystems)
{
    const ImagelessFile imageless;
    const LanguageFile language(imageless.Path());
    ASSERT_TRUE(m_button.SetOwnCursor(IDC_HAND_CURSOR));
    MoveMouseOver(m_button);
    EXPECT_TRUE(CursorsSet().empty());
    EXPECT_TRUE(CursorsSet().empty()) << "nor the second time";
}

TEST_F(OwnCursorTest, TakesThePlaceOfTheOneBefore)
{
    MoveMouseOver(m_button);
    const LanguageFile language;
    m_button.SetOwnCursor(IDC_HAND_CURSOR);
    EXPECT_EQ(CursorsSet().size(), 1u);
    const ImagelessFile imageless;
    const LanguageFile other(imageless.Path());
    m_button.SetOwnCursor(IDC_HAND_CURSOR);
    EXPECT_TRUE(CursorsSet().empty());
}

TEST_F(OwnerDrawBtnFrameworkTest, IconsHaveTheSizeOfSmallIcons)
{
    EXPECT_TRUE(m_button.SetIcons(IDI_BLUE, IDI_ORANGE));
    EXPECT_EQ(m_button.m_nIconWidth, GetSystemMetrics(SM_CXSMICON));
    EXPECT_EQ(m_button.m_nIconHeight, GetSystemMetrics(SM_CYSMICON));
    EXPECT_FALSE(m_button.SetIcons(9999));
    EXPECT_EQ(m_button.m_nIconWidth, 0);
    EXPECT_EQ(m_button.m_nIconHeight, 0);
    EXPECT_FALSE(m_button.SetIcons(IDI_BLUE, 9999));
    EXPECT_NE(m_button.m_nIconWidth, 0);
}

TEST_F(OwnerDrawBtnFrameworkTest, SettersDoNothingWorseWithoutAWindow)
{
    OpenButton<PlainButton> button;
    EXPECT_TRUE(button.SetIcons(IDI_BLUE));
    button.SetTextColour(RGB(1, 2, 3));
    EXPECT_EQ(button.m_crText, RGB(1, 2, 3));
}
