#pragma once

#include "framework/ui/kestrix/app/DelLogDlg.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/MessageBoxRecorder.h"
#include "tests/support/Picture.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/TraceRecorder.h"
#include "tests/ui/framework/ui/kestrix/app/ScriptedDialog.h"
#include "tests/ui/framework/ui/kestrix/app/page/PartWindow.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

inline constexpr wchar_t SuiteKey[] = L"Software\\Veldrane\\Zeptara";
inline constexpr wchar_t PurgeSettingsKey[] =
    L"Software\\Veldrane\\Zeptara\\17\\ServiceFramework\\EnforceLayer\\Common\\EventLog";

// One of the two small dialogs alone, with a list of three dates, in a suite that has a name. Questions are answered
// with Yes.
template <class Dialog>
class PurgeDialogTest : public ::testing::Test
{
protected:
    PurgeDialogTest()
    {
        m_registry.SetText(SuiteKey, L"ProductName", L"The suite");
        m_window.Add(WC_LISTBOXW, 1, LBS_NOTIFY, {0, 0, 200, 200});
        m_dates.SubclassDlgItem(1, m_window);
        AddDate(L"11/20/2026", 20261120);
        AddDate(L"11/19/2026", 20261119);
        AddDate(L"10/31/2026", 20261031);
        if constexpr (std::is_same_v<Dialog, CDelLogDlg>)
        {
            m_dialog.m_pDateList = &m_dates;
        }
    }

    void AddDate(const std::wstring& text, DWORD_PTR day) { m_dates.SetItemData(m_dates.AddString(text), day); }

    // The texts of a combo box, and what it carries beside them.
    using Entries = std::vector<std::pair<std::wstring, DWORD_PTR>>;

    static Entries EntriesOf(HWND window)
    {
        CComboBox combo;
        combo.Attach(window);
        Entries entries;
        for (int i = 0; i < combo.GetCount(); ++i)
        {
            entries.emplace_back(combo.GetLBText(i), combo.GetItemData(i));
        }
        combo.Detach();
        return entries;
    }

    void Press(UINT button) { m_dialog.Item(button).SendMessage(BM_CLICK); }

    const LanguageFile m_language;
    const RegistrySandbox m_registry;
    MessageBoxRecorder m_boxes{IDYES};
    TraceRecorder m_trace;
    PartWindow m_window;
    CListBox m_dates;
    ScriptedDialog<Dialog> m_dialog;
};
