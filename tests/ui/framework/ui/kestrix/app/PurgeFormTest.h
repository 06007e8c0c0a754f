#pragma once

#include "tests/support/ControllerDouble.h"
#include "tests/support/OleApartment.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/TraceRecorder.h"
#include "tests/ui/framework/ui/kestrix/app/KeysFormTest.h"
#include "tests/ui/framework/ui/kestrix/app/SentArrays.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

using Texts = std::vector<std::wstring>;

// The form on a log of the database with three days, with a record shown, and a service of the test.
class PurgeFormTest : public KeysFormTest
{
protected:
    PurgeFormTest()
    {
        EXPECT_TRUE(m_app.InitializeEventObject());
        m_database.AddDay(2026, 11, 20);
        m_database.AddDay(2026, 11, 19);
        m_database.AddDay(2026, 10, 31);
        m_database.SetLines({L"x|1030|1048576|x|0|0|alpha|C:\\a|4|1|0|0|x"});
        m_form.m_bIsLocal = true;
        m_boxes.Answer(IDYES);
    }

    ~PurgeFormTest() override { EXPECT_TRUE(m_app.UninitializeEventObject()); }

    // Runs the form with the record shown, and then the steps. The calls of the start are not kept. A dialog that
    // stands still is cancelled.
    void RunForm(std::vector<ScriptedForm::Step> steps)
    {
        steps.insert(steps.begin(), {[&] { ShowFirstRecord(); },
                                     [&]
                                     {
                                         EXPECT_EQ(Threat(), L"alpha");
                                         m_controller.m_calls.clear();
                                     }});
        steps.push_back(&CancelDialogs);
        EXPECT_EQ(m_form.Run(std::move(steps)), ScriptedForm::EndedByTest);
    }

    static void CancelDialogs()
    {
        for (const HWND dialog : {Deletion(), Settings()})
        {
            ::SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        }
    }

    // The dialog before the form; null when there is none.
    static HWND Dialog(UINT closeBox)
    {
        struct Search
        {
            int closeBox;
            HWND found;
        } search{static_cast<int>(closeBox), nullptr};

        ::EnumThreadWindows(
            ::GetCurrentThreadId(),
            [](HWND window, LPARAM data)
            {
                auto& wanted = *reinterpret_cast<Search*>(data);
                wanted.found = ::GetDlgItem(window, wanted.closeBox) != nullptr ? window : wanted.found;
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&search));
        return search.found;
    }

    static HWND Deletion() { return Dialog(IDC_DELETE_CLOSE_BOX); }

    static HWND Settings() { return Dialog(IDC_SETTINGS_CLOSE_BOX); }

    // As the mouse does; what the click opens stands after this step.
    void ClickDelete() { m_form.Item(IDC_FORM_DELETE).PostMessage(BM_CLICK); }

    void ClickSettings() { CWindow(PageItem(IDC_SETTING)).PostMessage(BM_CLICK); }

    // Reaches the handlers past the buttons, which may be disabled.
    void ReachHandlers()
    {
        m_form.PostMessage(WM_COMMAND, MAKEWPARAM(IDC_FORM_DELETE, BN_CLICKED));
        m_form.Page()->PostMessage(WM_COMMAND, MAKEWPARAM(IDC_SETTING, BN_CLICKED));
    }

    static void Choose(HWND dialog, UINT combo, int index)
    {
        ::SendDlgItemMessageW(dialog, static_cast<int>(combo), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    }

    static void Press(HWND dialog, UINT button)
    {
        ASSERT_NE(dialog, nullptr);
        ::SendDlgItemMessageW(dialog, static_cast<int>(button), BM_CLICK, 0, 0);
    }

    // Opens the delete dialog, chooses the date and confirms.
    std::vector<ScriptedForm::Step> DeletionUpTo(int index)
    {
        return {[this] { ClickDelete(); },
                [index]
                {
                    Choose(Deletion(), IDC_DELETE_DATE, index);
                    Press(Deletion(), IDOK);
                },
                [] {}};
    }

    // The end of a purge after which the log has the one day of 21 November.
    void EndPurge()
    {
        m_database.RemoveDays();
        m_database.AddDay(2026, 11, 21);
        m_database.SetLines({L"x|0900|1048576|x|0|0|after|C:\\a|4|1|0|0|x"});
        EXPECT_EQ(m_controller.Sink<IVdFrwkLocalEvents>()->OnCommandEvent(4, 22, 1, 0, 0, 0, 0, {}, {}, nullptr),
                  0x40200);
    }

    std::wstring Threat() const { return CWindow(PageItem(IDC_INFO_VALUE_0_LINK)).GetWindowText(); }

    std::wstring Location() const { return CWindow(PageItem(IDC_INFO_VALUE_2)).GetWindowText(); }

    // The name of the threat in the first row.
    std::wstring FirstRow() const { return m_form.Page()->RecordList().GetItemText(0, 2); }

    LRESULT DateCount() const { return CWindow(PageItem(IDC_DATE_LIST)).SendMessage(LB_GETCOUNT); }

private:
    const OleApartment m_apartment;

protected:
    const RegistrySandbox m_registry;
    ControllerDouble m_controller;
    const SentArrays m_sent{m_controller};
    TraceRecorder m_trace;
};
