#include "framework/ui/kestrix/app/page/KeyboardFocus.h"

#include "tests/ui/framework/ui/kestrix/app/page/PartWindow.h"

#include <gtest/gtest.h>

namespace
{

class KeyboardFocusTest : public ::testing::Test
{
protected:
    KeyboardFocusTest() { SetActiveWindow(m_page.GetSafeHwnd()); }

    PartWindow m_page;
    CWindow m_fallback = m_page.Add(L"BUTTON", 1, WS_TABSTOP);
    CWindow m_other = m_page.Add(L"BUTTON", 2, WS_TABSTOP);
};

} // namespace

TEST_F(KeyboardFocusTest, StaysWhereItCanBeUsed)
{
    m_other.SetFocus();
    KeepFocusUsable(m_page, m_fallback);
    EXPECT_EQ(GetFocus(), m_other.GetSafeHwnd());
}

TEST_F(KeyboardFocusTest, GoesToTheFallbackFromAWindowThatIsDisabledOrTakesNoKeys)
{
    m_other.SetFocus();
    SetWindowLongPtrW(m_other, GWL_STYLE, m_other.GetStyle() | WS_DISABLED); // it may keep the focus then
    KeepFocusUsable(m_page, m_fallback);
    EXPECT_EQ(GetFocus(), m_fallback.GetSafeHwnd());

    CWindow text = m_page.Add(L"STATIC", 3);
    text.SetFocus();
    KeepFocusUsable(m_page, m_fallback);
    EXPECT_EQ(GetFocus(), m_fallback.GetSafeHwnd());
}

TEST_F(KeyboardFocusTest, IsNotTakenFromAnotherWindowNorByAPageThatIsHidden)
{
    {
        PartWindow another;
        CWindow label = another.Add(L"STATIC", 1);
        SetActiveWindow(another.GetSafeHwnd());
        label.SetFocus();
        KeepFocusUsable(m_page, m_fallback);
        EXPECT_EQ(GetFocus(), label.GetSafeHwnd());
    }
    const CWindow page = m_page.Add(L"STATIC", 3);
    for (const bool isShown : {false, true})
    {
        m_other.SetFocus();
        m_other.EnableWindow(false);
        ShowWindow(page, isShown ? SW_SHOWNA : SW_HIDE);
        KeepFocusUsable(page, m_fallback);
        EXPECT_EQ(GetFocus() == m_fallback, isShown);
    }
}
