#pragma once

#include "framework/ui/kestrix/app/page/DateList.h"
#include "framework/ui/kestrix/app/page/DetailPane.h"
#include "framework/ui/kestrix/app/page/KeyboardFocus.h"
#include "framework/ui/kestrix/app/page/LogChoice.h"
#include "framework/ui/kestrix/app/page/LogOperations.h"
#include "framework/ui/kestrix/app/page/PageCommands.h"
#include "framework/ui/kestrix/app/page/PageHeadings.h"
#include "framework/ui/kestrix/app/page/PageKeys.h"
#include "framework/ui/kestrix/app/page/PageMenus.h"
#include "framework/ui/kestrix/app/page/RecordFinder.h"
#include "framework/ui/kestrix/app/page/RecordList.h"
#include "framework/ui/kestrix/app/page/SelectionFollower.h"
#include "framework/ui/kestrix/app/page/ShownLog.h"
#include "framework/ui/kestrix/app/page/ThreatLink.h"
#include "framework/ui/kestrix/controls/BitmapDialog.h"
#include "framework/ui/kestrix/controls/ExtendButton.h"
#include "framework/ui/kestrix/logs/DailyFiles.h"
#include "framework/ui/kestrix/logs/LogKinds.h"

#include <cstdint>
#include <string>

class COleDateTime;
class CLogFormDlg;
class CPageHost;
class CZPTLogBase;
class IDBManagerProvider;

// The page that shows one log: the dates that have records, the records of one date in a sorted list, and the selected
// record in a detail pane. Each of them, and the choice of another log, is an object that does the work; the page says
// which of them does what and when. It owns the log object, and the log object owns the records.
class CKestrixDlg : public CBitmapDialog
{
public:
    CKestrixDlg();
    ~CKestrixDlg();

    BOOL OnInitDialog() override;
    BOOL PreTranslateMessage(MSG& message) override;

    // Loads the selected date.
    void OnSelchangeLogDate();

    // Loads the first date, if it was left out until now.
    void LoadWhenShown();

    // Asks for the day up to which entries of the log are deleted, and has the service delete them.
    void OnBnClickedBtnDelete();

    // Builds the page anew for m_nLogType, after a switch to another log or a purge, and loads the newest date; while
    // an operation of the log runs, after that. The reason is not looked at.
    void RefreshLog(int) { m_Operations.Refresh(); }

    static constexpr int AnyReason = 100;

    // Switches to the log of this type, as a user who chooses it, unless it is shown already.
    void ShowLog(std::uint32_t logType);

    // What is loaded: the list of its records, the text of its date, empty when none is selected, and the log, null for
    // a type that has none.
    CSortListCtrl& RecordList() { return m_RecordList; }

    std::wstring SelectedDate() const { return m_DateList.SelectedText(); }

    CZPTLogBase* Log() const { return m_ShownLog.Log(); }

    // Takes the keyboard to the list of records when what has it in the form has gone, is disabled or takes no keys.
    void KeepFocusUsable() { ::KeepFocusUsable(*this, m_RecordList); }

    // Does what a key does that is pressed beside the page; false for one that does nothing there.
    bool RunKeyBeside(const MSG& message) { return IsWindowVisible() && RunPageKey(message, m_Commands); }

    // While the form waits for a modal dialog, the dialog that asks for a text to find waits as well.
    void EnableFinder(bool enable) { m_Finder.Enable(enable); }

    // Lends the page the form's buttons, which it enables while there is something to export or delete.
    void SetFormButtons(HWND exportButton, HWND deleteButton)
    {
        m_ExportButton.Attach(exportButton);
        m_DeleteButton.Attach(deleteButton);
    }

    // A text for a list cell: at most 255 characters, the middle of a longer one replaced by dots.
    static std::wstring ShortenDisplayText(const std::wstring& text) { return CRecordList::ShortenDisplayText(text); }

    // Set by the form before the page is made.
    std::uint32_t m_nLogType = 0;
    bool m_bIsLocal = false;
    bool m_bLogOnly = false;
    std::uint32_t m_nReportSpan = 0;
    std::wstring m_strLogPath;
    std::wstring m_strLocalIp;
    CLogFormDlg* m_pParentForm = nullptr; // the form that hosts the page; null: there is no choice of logs
    CPageHost* m_pHost = nullptr;         // lends the provider; null: there is none
    bool m_bLoadWhenShown = false;        // a day that may be long waits until the form stands and calls LoadWhenShown

protected:
    static const MessageMap& Map();

    const MessageMap& GetMessageMap() const override { return Map(); }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        return m_Finder.Take(message, lParam) ? 0 : CBitmapDialog::WindowProc(message, wParam, lParam);
    }

    void DoDataExchange(CDataExchange& exchange) override;

private:
    LRESULT OnShowWindow(WPARAM shown, LPARAM)
    {
        m_Finder.NotePageShown(shown != 0);
        return Default();
    }

    void OnGetDispInfoLogList(NMLVDISPINFOW& info);

    void OnClickLogList(NMITEMACTIVATE&) { m_Follower.ShowNow(); }

    void OnItemChangedLogList(NMLISTVIEW& change) { m_Follower.NoteChange(change); }

    LRESULT OnFollowSelection(WPARAM, LPARAM) { return m_Follower.Follow(); }

    void OnContextMenu(HWND window, POINT point) { ShowPageMenu(window, point, m_Commands); }

    void OnColumnClickLogList(NMLISTVIEW& click) { m_RecordList.SortByClick(click.iSubItem); }

    void OnStnClickedMoreInfo() { m_ShownLog.ShowWholeText(); }

    void OnStnClickedTypesValue();
    void OnBnClickedBtnAddRule();
    void OnBnClickedBtnView();
    void OnBnClickedBtnSetting();

    void SetFonts();
    bool TakeProvider();
    void BuildAnew();
    bool ShowFirstDate();
    bool SwitchTo(std::uint32_t logType);

    bool GetLogFileName(COleDateTime& date) const { return m_DateList.GetSelectedDate(date); }

    bool MakeLog() { return m_ShownLog.Make(m_nLogType, {m_bIsLocal, m_pIDBManagerProvider, m_strLocalIp}); }

    void FillDate()
    {
        m_DateList.Fill({*Log(), m_bIsLocal, m_pIDBManagerProvider, m_strLogPath, m_bLogOnly, m_nReportSpan});
    }

    void FillLogTypeCombo();
    void ShowLogMessage(const std::wstring& text) const;

    bool HasForeignLogFile() const { return ::HasForeignLogFile(m_strLogPath); }

    // What is known of the page's type; null for one without a log.
    const LogKind* Kind() const { return FindLogKind(m_nLogType); }

    IDBManagerProvider* m_pIDBManagerProvider = nullptr; // not owned
    CShownLog m_ShownLog{m_RecordList, m_DetailPane};    // goes after both
    bool m_bLoadDue = false;                             // the first date is selected and not loaded
    CLogOperations m_Operations{[this] { BuildAnew(); }};

    CPageHeadings m_Headings;
    CDateList m_DateList;
    CRecordList m_RecordList;
    CDetailPane m_DetailPane{m_ToolTip};
    CSelectionFollower m_Follower{m_RecordList, m_ShownLog};
    CRecordFinder m_Finder{m_RecordList, m_ShownLog};
    CPageCommands m_Commands{m_ShownLog, m_RecordList, m_DetailPane, m_Finder, [this] { OnBnClickedBtnAddRule(); }};
    CLogChoice m_TypeCombo;
    CExtendButton m_ViewButton;
    CExtendButton m_SettingButton;
    CExtendButton m_ExportButton; // lent by the form; without it nothing happens
    CExtendButton m_DeleteButton;
};
