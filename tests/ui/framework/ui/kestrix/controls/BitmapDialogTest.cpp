#include "tests/support/LiveHandles.h"
#include "tests/ui/gallery/SkinDialog.h"

#include <gtest/gtest.h>

namespace
{

constexpr COLORREF Red = RGB(200, 0, 0);
constexpr COLORREF Blue = RGB(0, 0, 200);

// What the dialog answers when a control asks for its colours.
struct Colours
{
    HBRUSH brush;
    int mode;
    COLORREF text;
    COLORREF ground;
    HGDIOBJ font;
};

class BitmapDialogTest : public ::testing::Test
{
protected:
    BitmapDialogTest() { m_dialog.m_SolidBrush.CreateSolidBrush(Blue); }

    // Asks with a context whose settings can be told from everybody's own.
    Colours Ask(UINT message, UINT control) const
    {
        const UniqueMemoryDC dc(CreateCompatibleDC(nullptr));
        const CSaveDC saved(dc.get());
        SetTextColor(dc.get(), Unset);
        SetBkColor(dc.get(), Unset);
        const LRESULT brush = m_dialog.SendMessage(message, reinterpret_cast<WPARAM>(dc.get()),
                                                   reinterpret_cast<LPARAM>(m_dialog.GetDlgItem(control)));
        return {reinterpret_cast<HBRUSH>(brush), GetBkMode(dc.get()), GetTextColor(dc.get()), GetBkColor(dc.get()),
                GetCurrentObject(dc.get(), OBJ_FONT)};
    }

    void UseBackground(bool solid)
    {
        ASSERT_TRUE(m_dialog.SetBackground(IDB_SKIN_PICTURE));
        m_dialog.m_bSolidBackground = solid;
    }

    static constexpr COLORREF Unset = RGB(1, 2, 3);

    const HBRUSH m_hollow = static_cast<HBRUSH>(GetStockObject(HOLLOW_BRUSH));
    CSkinDialog m_dialog{{260, 180}};
};

BOOL PressKey(CSkinDialog& dialog, UINT message, WPARAM key)
{
    MSG press{dialog, message, key, 0, 0, {}};
    return dialog.PreTranslateMessage(press);
}

} // namespace

TEST_F(BitmapDialogTest, WithoutABackgroundTheBaseDecides)
{
    const CWnd* const before = CWnd::FromHandlePermanent(m_dialog);
    ASSERT_NE(nullptr, before);
    m_dialog.m_bSolidBackground = true;
    m_dialog.SetTextColour(IDC_SKIN_TEXT, Red);
    const Colours colours = Ask(WM_CTLCOLORSTATIC, IDC_SKIN_TEXT);
    EXPECT_EQ(GetSysColorBrush(COLOR_BTNFACE), colours.brush);
    EXPECT_NE(Red, colours.text);
    EXPECT_EQ(OPAQUE, colours.mode);
}

TEST_F(BitmapDialogTest, AnEditStandsOnTheBackgroundWithTheBasesBrush)
{
    UseBackground(false);
    for (const UINT message : {WM_CTLCOLOREDIT, WM_CTLCOLORMSGBOX})
    {
        const Colours colours = Ask(message, IDC_SKIN_EDIT);
        EXPECT_EQ(TRANSPARENT, colours.mode);
        EXPECT_NE(m_hollow, colours.brush);
        EXPECT_NE(nullptr, colours.brush);
        EXPECT_NE(m_dialog.m_SolidBrush.GetSafeHandle(), colours.brush);
    }
}

TEST_F(BitmapDialogTest, AnEditOfAPageStandsOnTheSolidBrush)
{
    UseBackground(true);
    for (const UINT message : {WM_CTLCOLOREDIT, WM_CTLCOLORMSGBOX})
    {
        const Colours colours = Ask(message, IDC_SKIN_EDIT);
        EXPECT_EQ(m_dialog.m_SolidBrush.GetSafeHandle(), colours.brush);
        EXPECT_EQ(OPAQUE, colours.mode);
    }
}

// Group and check boxes of a page stood on the solid brush, and all other buttons on the background: the rule was read
// the wrong way round. Only the exact kind counts, in the bits of the style that belong to the window class.
TEST_F(BitmapDialogTest, OnASolidBackgroundTheDialogShowsThroughGroupAndCheckBoxesAlone)
{
    static constexpr struct
    {
        DWORD style;
        bool hollow;
    } Buttons[] = {
        {BS_PUSHBUTTON, false},
        {BS_DEFPUSHBUTTON, false},
        {BS_CHECKBOX, false},
        {BS_AUTOCHECKBOX, true},
        {BS_RADIOBUTTON, false},
        {BS_3STATE, false},
        {BS_AUTO3STATE, false},
        {BS_GROUPBOX, true},
        {BS_USERBUTTON, false},
        {BS_AUTORADIOBUTTON, false},
        {BS_OWNERDRAW, false},
        {BS_AUTOCHECKBOX | BS_MULTILINE, false},
        {BS_GROUPBOX | BS_RIGHT, false},
        {BS_AUTOCHECKBOX | WS_TABSTOP | WS_GROUP, true},
    };

    CWindow button(m_dialog.GetDlgItem(IDC_SKIN_BUTTON));
    for (const auto& [style, hollow] : Buttons)
    {
        SetWindowLongPtrW(button, GWL_STYLE, static_cast<LONG_PTR>(WS_CHILD | style));
        UseBackground(true);
        const Colours solid = Ask(WM_CTLCOLORBTN, IDC_SKIN_BUTTON);
        EXPECT_EQ(hollow ? m_hollow : m_dialog.m_SolidBrush.GetSafeHandle(), solid.brush) << style;
        EXPECT_EQ(hollow ? TRANSPARENT : OPAQUE, solid.mode) << style;
        UseBackground(false);
        const Colours open = Ask(WM_CTLCOLORBTN, IDC_SKIN_BUTTON);
        EXPECT_EQ(m_hollow, open.brush) << style;
        EXPECT_EQ(TRANSPARENT, open.mode) << style;
    }
}

TEST_F(BitmapDialogTest, ATrackBarKeepsItsOwnColours)
{
    for (const bool solid : {false, true})
    {
        UseBackground(solid);
        const Colours colours = Ask(WM_CTLCOLORSTATIC, IDC_SKIN_TRACK);
        EXPECT_EQ(GetSysColorBrush(COLOR_BTNFACE), colours.brush) << solid;
        EXPECT_EQ(OPAQUE, colours.mode) << solid;
        EXPECT_EQ(GetSysColor(COLOR_BTNFACE), colours.ground) << solid;
    }
}

TEST_F(BitmapDialogTest, ATextShowsTheBackgroundInTheBasesColours)
{
    UseBackground(false);
    const Colours colours = Ask(WM_CTLCOLORSTATIC, IDC_SKIN_TEXT);
    EXPECT_EQ(m_hollow, colours.brush);
    EXPECT_EQ(TRANSPARENT, colours.mode);
    EXPECT_EQ(GetSysColor(COLOR_WINDOWTEXT), colours.text);
}

TEST_F(BitmapDialogTest, ATextOfAPageStandsOnTheSolidBrush)
{
    UseBackground(true);
    EXPECT_EQ(m_dialog.m_SolidBrush.GetSafeHandle(), Ask(WM_CTLCOLORSTATIC, IDC_SKIN_TEXT).brush);
}

TEST_F(BitmapDialogTest, AnyOtherKindGetsTheBasesBrush)
{
    for (const bool solid : {false, true})
    {
        UseBackground(solid);
        EXPECT_EQ(GetSysColorBrush(COLOR_WINDOW), Ask(WM_CTLCOLORLISTBOX, IDC_SKIN_LIST).brush) << solid;
        EXPECT_EQ(GetSysColorBrush(COLOR_BTNFACE), Ask(WM_CTLCOLORDLG, IDC_SKIN_LIST).brush) << solid;
    }
}

TEST_F(BitmapDialogTest, AControlHasItsOwnTextColour)
{
    m_dialog.SetTextColour(IDC_SKIN_TEXT, Red);
    for (const bool solid : {false, true})
    {
        UseBackground(solid);
        EXPECT_EQ(Red, Ask(WM_CTLCOLORSTATIC, IDC_SKIN_TEXT).text) << solid;
        EXPECT_NE(Red, Ask(WM_CTLCOLORSTATIC, IDC_SKIN_CHECK).text) << solid;
    }
}

TEST_F(BitmapDialogTest, TheSystemDecidesColoursFirstAndTheControlsOwnStand)
{
    UseBackground(false);
    const Colours before = Ask(WM_CTLCOLORSTATIC, IDC_SKIN_TEXT);
    ASSERT_NE(before.text, Unset) << "the system sets a colour too";
    m_dialog.SetTextColour(IDC_SKIN_TEXT, Red);
    const Colours after = Ask(WM_CTLCOLORSTATIC, IDC_SKIN_TEXT);
    EXPECT_EQ(after.text, Red);
    EXPECT_EQ(after.ground, before.ground);
    EXPECT_NE(after.ground, Unset);
}

TEST_F(BitmapDialogTest, AControlIsDrawnInItsOwnFont)
{
    UseBackground(true);
    m_dialog.SetControlFont(IDC_SKIN_TEXT, FW_BOLD, true);
    LOGFONTW font{};
    ASSERT_NE(0, GetObjectW(Ask(WM_CTLCOLORSTATIC, IDC_SKIN_TEXT).font, sizeof font, &font));
    EXPECT_EQ(FW_BOLD, font.lfWeight);
    EXPECT_TRUE(font.lfUnderline);
    EXPECT_EQ(CWindow(m_dialog.GetDlgItem(IDC_SKIN_TEXT)).GetFont(), Ask(WM_CTLCOLORSTATIC, IDC_SKIN_TEXT).font);
    EXPECT_NE(Ask(WM_CTLCOLORSTATIC, IDC_SKIN_TEXT).font, Ask(WM_CTLCOLOREDIT, IDC_SKIN_EDIT).font);
}

TEST_F(BitmapDialogTest, AFontSetForAControlGoesWithTheDialogAndNothingNeedsToFreeIt)
{
    const long before = LiveHandles::Of(HandleKind::Font);
    m_dialog.SetControlFont(IDC_SKIN_TEXT, FW_BOLD);
    m_dialog.SetControlFont(IDC_SKIN_EDIT, FW_BOLD);
    m_dialog.SetControlFont(IDC_SKIN_TEXT, FW_NORMAL); // in the place of the first
    EXPECT_EQ(before + 2, LiveHandles::Of(HandleKind::Font));
    m_dialog.DestroyWindow();
    EXPECT_EQ(before, LiveHandles::Of(HandleKind::Font));
}

TEST_F(BitmapDialogTest, TheColourOfAControlGoesWithTheWindow)
{
    m_dialog.SetTextColour(IDC_SKIN_TEXT, Red);
    m_dialog.DestroyWindow();
    ASSERT_TRUE(m_dialog.Create(IDD_SKIN_TEST));
    UseBackground(false);
    EXPECT_NE(Red, Ask(WM_CTLCOLORSTATIC, IDC_SKIN_TEXT).text);
}

TEST_F(BitmapDialogTest, EnterAndEscapeDoNothing)
{
    EXPECT_TRUE(PressKey(m_dialog, WM_KEYDOWN, VK_RETURN));
    EXPECT_TRUE(PressKey(m_dialog, WM_KEYDOWN, VK_ESCAPE));
    EXPECT_TRUE(IsWindow(m_dialog));
}

TEST_F(BitmapDialogTest, OtherKeysGoToTheBase)
{
    CSkinDialog page({50, 50}, &m_dialog);
    EXPECT_TRUE(PressKey(page, WM_KEYDOWN, VK_ESCAPE));
    EXPECT_FALSE(PressKey(page, WM_KEYDOWN, 'A')) << "a page leaves its keys to the dialog around it";
    EXPECT_FALSE(PressKey(page, WM_KEYUP, VK_RETURN));
}

TEST_F(BitmapDialogTest, TheToolTipStandsAlwaysAndHoldsTheTextOfAControl)
{
    ASSERT_NE(nullptr, m_dialog.m_ToolTip.GetSafeHwnd());
    EXPECT_EQ(DWORD{TTS_ALWAYSTIP}, m_dialog.m_ToolTip.GetStyle() & TTS_ALWAYSTIP);
    m_dialog.SetControlToolTip(IDC_SKIN_TEXT, L"tip");
    EXPECT_EQ(L"tip", m_dialog.m_ToolTip.GetText(m_dialog.GetDlgItem(IDC_SKIN_TEXT)));
    m_dialog.SetControlToolTip(IDC_SKIN_TEXT, {});
    EXPECT_EQ(L"", m_dialog.m_ToolTip.GetText(m_dialog.GetDlgItem(IDC_SKIN_TEXT)));
}
