#include "platform/dialog/Dialog.h"

#include "tests/ui/platform/dialog/ScriptDialog.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace
{

constexpr INT_PTR Result = 77;

void End(CScriptDialog& dialog)
{
    dialog.EndDialog(Result);
}

TEST(DialogTest, BeginsInOrderAndEndsWithTheResult)
{
    CScriptDialog dialog;
    dialog.m_inLoop = End;
    EXPECT_EQ(Result, dialog.DoModal());
    EXPECT_EQ((Notes{L"subclass", L"exchange 0", L"init 1", L"destroy"}), dialog.m_notes);
    EXPECT_EQ(nullptr, dialog.GetSafeHwnd());
}

TEST(DialogTest, RunsASecondTime)
{
    CScriptDialog dialog;
    dialog.m_inLoop = End;
    EXPECT_EQ(Result, dialog.DoModal());
    EXPECT_EQ(Result, dialog.DoModal());
}

TEST(DialogTest, IsShownInTheLoopAlsoWhenTheTemplateDoesNotSaySo)
{
    CScriptDialog dialog;
    bool inInit = true;
    bool inLoop = false;
    dialog.m_inInit = [&](CScriptDialog& self) { inInit = self.IsWindowVisible(); };
    dialog.m_inLoop = [&](CScriptDialog& self)
    {
        inLoop = self.IsWindowVisible();
        self.EndDialog(1);
        EXPECT_FALSE(self.IsWindowVisible()); // at once
    };
    dialog.DoModal();
    EXPECT_FALSE(inInit);
    EXPECT_TRUE(inLoop);
}

TEST(DialogTest, IsToldThatItStandsOnTheScreenBeforeItsFirstMessage)
{
    CScriptDialog dialog;
    std::vector<std::wstring> order;
    dialog.m_whenShown = [&](CScriptDialog& self) { order.push_back(Note(L"shown", self.IsWindowVisible())); };
    dialog.m_inLoop = [&](CScriptDialog& self)
    {
        order.push_back(L"loop");
        End(self);
    };
    dialog.DoModal();
    EXPECT_EQ((Notes{L"shown 1", L"loop"}), order);
}

TEST(DialogTest, EndedInOnInitDialogItIsNeverToldThatItStandsOnTheScreen)
{
    CScriptDialog dialog;
    bool told = false;
    dialog.m_inInit = End;
    dialog.m_whenShown = [&](CScriptDialog&) { told = true; };
    EXPECT_EQ(Result, dialog.DoModal());
    EXPECT_FALSE(told);
}

TEST(DialogTest, AnExceptionInOnShownIsReportedAndTheDialogGoesOn)
{
    RecordingApp app;
    CScriptDialog dialog;
    dialog.m_whenShown = [](CScriptDialog&) { throw std::runtime_error("no data"); };
    dialog.m_inLoop = End;
    EXPECT_EQ(Result, dialog.DoModal());
    EXPECT_EQ(Notes{L"no data"}, app.m_reports);
}

// The limit message of the program ends its form before the user sees it.
TEST(DialogTest, EndedInOnInitDialogNoTemplateStyleMakesItAppear)
{
    for (const UINT id : {IDD_TEST_DIALOG, IDD_TEST_VISIBLE, IDD_TEST_PLAIN_FORM})
    {
        CScriptDialog dialog(id);
        dialog.m_traceLook = true;
        dialog.m_inInit = [](CScriptDialog& self) { self.OnCancel(); };
        EXPECT_EQ(IDCANCEL, dialog.DoModal());
        EXPECT_EQ(0, std::ranges::count(dialog.m_notes, L"shown owner 0"));
    }
}

TEST(DialogTest, TheFirstResultCounts)
{
    CScriptDialog dialog;
    dialog.m_inLoop = [](CScriptDialog& self)
    {
        self.EndDialog(3);
        self.EndDialog(4);
    };
    EXPECT_EQ(3, dialog.DoModal());
}

TEST(DialogTest, OkAndCancelEndWithTheirNumbers)
{
    for (const int id : {IDOK, IDCANCEL})
    {
        CScriptDialog dialog;
        dialog.m_inLoop = [id](CScriptDialog& self) { self.SendMessage(WM_COMMAND, MAKEWPARAM(id, BN_CLICKED)); };
        EXPECT_EQ(id, dialog.DoModal());
    }
}

TEST(DialogTest, TheCloseCommandOfTheWindowCancels)
{
    CScriptDialog dialog;
    dialog.m_inLoop = [](CScriptDialog& self) { self.PostMessage(WM_CLOSE); };
    EXPECT_EQ(IDCANCEL, dialog.DoModal());
}

TEST(DialogTest, AMissingTemplateGivesMinusOne)
{
    CScriptDialog dialog(12345);
    EXPECT_EQ(-1, dialog.DoModal());
    EXPECT_TRUE(dialog.m_notes.empty());
    EXPECT_FALSE(dialog.Create(12345));
}

TEST(DialogTest, WhatCannotBeMadeGivesMinusOneAndEnablesTheOwner)
{
    PlainWindow window;
    CWnd owner;
    ASSERT_TRUE(owner.SubclassWindow(window.Get()));
    CScriptDialog dialog(12345, &owner);
    EXPECT_EQ(-1, dialog.DoModal());
    EXPECT_TRUE(owner.IsWindowEnabled());
}

TEST(DialogTest, AnExceptionInOnInitDialogIsReportedAndEndsWithMinusOne)
{
    RecordingApp app;
    CScriptDialog dialog;
    dialog.m_inInit = [](CScriptDialog&) { throw std::runtime_error("no data"); };
    EXPECT_EQ(-1, dialog.DoModal());
    EXPECT_EQ(Notes{L"no data"}, app.m_reports);
    EXPECT_EQ(nullptr, dialog.GetSafeHwnd());
    EXPECT_FALSE(dialog.Create(IDD_TEST_DIALOG));
    EXPECT_EQ(2u, app.m_reports.size());
}

TEST(DialogTest, AnExceptionBeforeSubclassingLeavesNoWindow)
{
    struct Throwing : CDialog
    {
        using CDialog::CDialog;

        void PreSubclassWindow() override
        {
            made = m_hWnd;
            throw std::runtime_error("no");
        }

        HWND made = nullptr;
    };

    RecordingApp app;
    Throwing dialog(IDD_TEST_DIALOG);
    EXPECT_EQ(-1, dialog.DoModal());
    EXPECT_NE(nullptr, dialog.made);
    EXPECT_FALSE(IsWindow(dialog.made));
}

TEST(DialogTest, AnExceptionAfterEndDialogInOnInitDialogStillGivesMinusOne)
{
    RecordingApp app;
    CScriptDialog dialog;
    dialog.m_inInit = [](CScriptDialog& self)
    {
        self.EndDialog(Result);
        throw std::runtime_error("late");
    };
    EXPECT_EQ(-1, dialog.DoModal());
}

TEST(DialogTest, AWindowThatIsDestroyedInTheLoopGivesMinusOne)
{
    CScriptDialog dialog;
    dialog.m_inLoop = [](CScriptDialog& self) { self.DestroyWindow(); };
    EXPECT_EQ(-1, dialog.DoModal());
}

TEST(DialogTest, TheOwnerIsDisabledInTheLoopAndEnabledBeforeTheDialogHides)
{
    PlainWindow window;
    ShowWindow(window.Get(), SW_SHOW);
    CWnd owner;
    ASSERT_TRUE(owner.SubclassWindow(window.Get()));
    CScriptDialog dialog(IDD_TEST_DIALOG, &owner);
    dialog.m_traceLook = true;
    dialog.m_inLoop = End;
    EXPECT_EQ(Result, dialog.DoModal());
    EXPECT_EQ((Notes{L"subclass", L"exchange 0", L"init 1", L"shown owner 0", L"hidden owner 1", L"destroy"}),
              dialog.m_notes);
    EXPECT_TRUE(owner.IsWindowEnabled());
    EXPECT_EQ(window.Get(), GetActiveWindow());
}

TEST(DialogTest, AChildAsParentStandsForItsWholeWindow)
{
    PlainWindow window;
    CWnd child;
    ASSERT_TRUE(child.Create(WC_STATICW, L"", WS_CHILD, {}, window.Get(), 1));
    CScriptDialog dialog(IDD_TEST_DIALOG, &child);
    bool enabled = true;
    dialog.m_inLoop = [&](CScriptDialog& self)
    {
        enabled = IsWindowEnabled(window.Get());
        self.EndDialog(1);
    };
    EXPECT_EQ(1, dialog.DoModal());
    EXPECT_FALSE(enabled);
}

TEST(DialogTest, AnOwnerThatWasDisabledStaysSo)
{
    PlainWindow window;
    CWnd owner;
    ASSERT_TRUE(owner.SubclassWindow(window.Get()));
    owner.EnableWindow(false);
    CScriptDialog dialog(IDD_TEST_DIALOG, &owner);
    dialog.m_inLoop = End;
    EXPECT_EQ(Result, dialog.DoModal());
    EXPECT_FALSE(owner.IsWindowEnabled());
}

TEST(DialogTest, WithoutAParentTheMainWindowOwns)
{
    RecordingApp app;
    CScriptDialog main;
    app.m_pMainWnd = &main;
    HWND owner = nullptr;
    main.m_inLoop = [&owner](CScriptDialog& self)
    {
        CScriptDialog inner;
        inner.m_inLoop = [&owner](CScriptDialog& dialog)
        {
            owner = GetWindow(dialog, GW_OWNER);
            dialog.EndDialog(2);
        };
        EXPECT_EQ(2, inner.DoModal());
        EXPECT_EQ(owner, self.GetSafeHwnd());
        self.EndDialog(1);
    };
    EXPECT_EQ(1, main.DoModal());
}

TEST(DialogTest, AnInnerDialogEndsFirstAndTheOuterGoesOn)
{
    CScriptDialog outer;
    Notes order;
    outer.m_inLoop = [&order](CScriptDialog& self)
    {
        CScriptDialog inner(IDD_TEST_DIALOG, &self);
        inner.m_inLoop = [&](CScriptDialog& dialog)
        {
            order.push_back(Note(L"inner, outer enabled", self.IsWindowEnabled()));
            dialog.EndDialog(2);
        };
        order.push_back(Note(L"inner gave", inner.DoModal()));
        order.push_back(Note(L"outer enabled", self.IsWindowEnabled(), self.IsWindowVisible()));
        self.m_inLoop = End;
        self.PostMessage(WM_APP + 1);
    };
    EXPECT_EQ(Result, outer.DoModal());
    EXPECT_EQ((Notes{L"inner, outer enabled 0", L"inner gave 2", L"outer enabled 1 1"}), order);
}

TEST(DialogTest, AnOuterDialogEndedFromWithinEndsWhenTheInnerHas)
{
    CScriptDialog outer;
    Notes order;
    outer.m_inLoop = [&order](CScriptDialog& self)
    {
        CScriptDialog inner(IDD_TEST_DIALOG, &self);
        inner.m_inLoop = [&](CScriptDialog& dialog)
        {
            self.EndDialog(Result);
            dialog.m_inLoop = End;
            dialog.PostMessage(WM_APP + 1); // its loop still runs
        };
        order.push_back(Note(L"inner gave", inner.DoModal()));
    };
    EXPECT_EQ(Result, outer.DoModal());
    EXPECT_EQ(Notes{L"inner gave 77"}, order);
}

TEST(DialogTest, QuitEndsEveryLoopAndIsPostedOn)
{
    CScriptDialog outer;
    INT_PTR innerResult = 0;
    outer.m_inLoop = [&innerResult](CScriptDialog& self)
    {
        CScriptDialog inner(IDD_TEST_DIALOG, &self);
        inner.m_inLoop = [](CScriptDialog&) { PostQuitMessage(13); };
        innerResult = inner.DoModal();
    };
    EXPECT_EQ(-1, outer.DoModal());
    EXPECT_EQ(-1, innerResult);
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(13u, message.wParam);
}

TEST(DialogTest, InitResultFalseLeavesTheFocusWhereTheHandlerPutIt)
{
    for (const BOOL byDefault : {TRUE, FALSE})
    {
        CScriptDialog dialog;
        dialog.m_initResult = byDefault;
        dialog.m_inInit = [](CScriptDialog& self) { SetFocus(self.GetDlgItem(IDC_TEST_BUTTON)); };
        int focused = 0;
        dialog.m_inLoop = [&focused](CScriptDialog& self)
        {
            focused = GetDlgCtrlID(GetFocus());
            self.EndDialog(1);
        };
        dialog.DoModal();
        EXPECT_EQ(byDefault ? IDC_TEST_EDIT : IDC_TEST_BUTTON, focused);
    }
}

TEST(DialogTest, ControlsAndTextsAreExchanged)
{
    CScriptDialog dialog;
    dialog.m_text = L"from the member";
    ASSERT_TRUE(dialog.Create(IDD_TEST_DIALOG));
    EXPECT_EQ(dialog.GetDlgItem(IDC_TEST_EDIT), dialog.m_edit.GetSafeHwnd());
    EXPECT_EQ(&dialog.m_edit, CWnd::FromHandlePermanent(dialog.GetDlgItem(IDC_TEST_EDIT)));
    EXPECT_EQ(nullptr, dialog.m_missing.GetSafeHwnd()); // tolerated
    EXPECT_EQ(L"from the member", dialog.GetDlgItemText(IDC_TEST_STATIC));

    dialog.SetDlgItemText(IDC_TEST_STATIC, L"from the control");
    dialog.UpdateData(true);
    EXPECT_EQ(L"from the control", dialog.m_text);
}

TEST(DialogTest, AModelessDialogIsHiddenByEndDialogAndGoesWithItsObject)
{
    HWND window = nullptr;
    {
        CScriptDialog dialog;
        ASSERT_TRUE(dialog.Create(IDD_TEST_VISIBLE));
        window = dialog;
        EXPECT_TRUE(dialog.IsWindowVisible());
        EXPECT_FALSE(dialog.Create(IDD_TEST_VISIBLE)); // has a window
        EXPECT_EQ(-1, dialog.DoModal());
        dialog.OnCancel();
        EXPECT_FALSE(dialog.IsWindowVisible());
        EXPECT_TRUE(IsWindow(window));
    }
    EXPECT_FALSE(IsWindow(window));
}

TEST(DialogTest, AChildDialogGoesWithItsParentsWindow)
{
    CScriptDialog parent;
    CScriptDialog child;
    ASSERT_TRUE(parent.Create(IDD_TEST_DIALOG));
    ASSERT_TRUE(child.Create(IDD_TEST_CHILD, &parent));
    EXPECT_EQ(parent.GetSafeHwnd(), child.GetParent());
    parent.DestroyWindow();
    EXPECT_EQ(nullptr, child.GetSafeHwnd());
    EXPECT_EQ(1, std::ranges::count(child.m_notes, L"destroy")); // its handlers saw the end
}

TEST(DialogTest, AnotherInitMessageIsNotTakenForABeginning)
{
    CScriptDialog dialog;
    ASSERT_TRUE(dialog.Create(IDD_TEST_DIALOG));
    dialog.SendMessage(WM_INITDIALOG, 0, 0x1234);
    EXPECT_EQ(1, std::ranges::count(dialog.m_notes, L"subclass"));
}

} // namespace
