#pragma once

#include "framework/ui/kestrix/controls/BitmapDialog.h"
#include "framework/ui/kestrix/controls/ClickText.h"
#include "framework/ui/kestrix/controls/ColorText.h"
#include "framework/ui/kestrix/controls/ExtendButton.h"
#include "framework/ui/kestrix/controls/SortListCtrl.h"
#include "framework/ui/kestrix/logs/LogInfoPage.h"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

class COleDateTime;
class CLogFormDlg;
class CPageHost;
class CZPTLogBase;
class IDBManagerProvider;
enum class FirstInfo;
struct LogKind;

// The page that shows one log: the dates that have records, the records of one date in a sorted list, and the selected
// record in a detail pane. It owns the log object, and the log object owns the records.
class CKestrixDlg : public CBitmapDialog, public CLogInfoPage
{
public:
    CKestrixDlg();
    ~CKestrixDlg();

    BOOL OnInitDialog() override;
    BOOL PreTranslateMessage(MSG& message) override;

    // Loads the selected date.
    void OnSelchangeLogDate();

    // Builds the page anew for m_nLogType, behind a switch to another log or a purge, and loads the newest date. The
    // reason is not looked at.
    void RefreshLog(int reason);
    static constexpr int AnyReason = 100;

    // What is loaded: the list of its records, the text of its date, empty when none is selected, and the log, null for
    // a type that has none.
    CSortListCtrl& RecordList() { return m_RecordList; }

    std::wstring SelectedDate() const { return m_DateList.GetText(m_DateList.GetCurSel()); }

    CZPTLogBase* Log() const { return m_pLogData.get(); }

    // Takes the keyboard to the list of records when what has it in the form has gone, is disabled or takes no keys.
    void KeepFocusUsable();

    // Lends the page the form's buttons, which it enables while there is something to export or delete.
    void SetFormButtons(HWND exportButton, HWND deleteButton);

    // A text for a list cell: at most 255 characters, the middle of a longer one replaced by dots.
    static std::wstring ShortenDisplayText(const std::wstring& text);

    // Set by the form before the page is made.
    std::uint32_t m_nLogType = 0;
    bool m_bIsLocal = false;
    bool m_bLogOnly = false;
    std::uint32_t m_nReportSpan = 0;
    std::wstring m_strLogPath;
    std::wstring m_strLocalIp;
    CLogFormDlg* m_pParentForm = nullptr; // the form that hosts the page; null: there is no choice of logs
    CPageHost* m_pHost = nullptr;         // lends the provider; null: there is none

protected:
    static const MessageMap& Map();

    const MessageMap& GetMessageMap() const override { return Map(); }

    void DoDataExchange(CDataExchange& exchange) override;

private:
    // CLogInfoPage
    void SetInfoRow(std::size_t row, const std::wstring& caption, bool visible) override;
    void SetInfoText(std::size_t row, const std::wstring& text, const std::wstring& toolTip) override;
    void SetInfoLink(const std::wstring& text, const std::wstring& toolTip) override;

    void OnGetDispInfoLogList(NMLVDISPINFOW& info);
    void OnClickLogList(NMITEMACTIVATE& click);
    void OnColumnClickLogList(NMLISTVIEW& click);
    void OnStnClickedTypesValue();
    void OnStnClickedMoreInfo();
    void OnBnClickedBtnAddRule();
    void OnBnClickedBtnView();

    void SetHeadings();
    void SetButtons();
    void SetFonts();
    bool TakeProvider();
    bool MakeLog();
    void SetUpLog();
    void ShowFirstInfo(FirstInfo how);
    void SetInfo(UINT control, const std::wstring& text, const std::wstring& toolTip);
    void ShowInfo(UINT control, bool show);
    void PlaceFirstText(int rows);
    void RemoveLog();
    void FillDate();
    bool FillDateFromProvider();
    bool FillDateFromFiles();
    void AddDay(const SYSTEMTIME& day);
    void AddEntry(int index, const std::wstring& text, const COleDateTime& date);
    bool GetEntryDate(int index, COleDateTime& date) const;
    void InsertDate(const COleDateTime& date, std::uint32_t size);
    bool ShowFirstDate();
    bool GetLogFileName(COleDateTime& date) const;
    bool HasUsablePath() const;
    void ShowFreshList();
    void ShowSelectedRecord();
    void ShowShortInfo();
    void ClearInfo();
    bool ChkInternetConnect();
    void FillLogTypeCombo();
    void SelectLogType(std::uint32_t type);
    void ShowLogMessage(const std::wstring& text) const;
    bool HasLongInfo() const;
    const LogKind* Kind() const;

    IDBManagerProvider* m_pIDBManagerProvider = nullptr; // not owned
    std::unique_ptr<CZPTLogBase> m_pLogData;             // null for a type that has no class
    RECT m_rcInfoValue{}; // screen rectangle of the first value as the template places it

    CListBox m_DateList;
    CSortListCtrl m_RecordList;
    CComboBox m_TypeCombo;
    std::array<CColorText, 4> m_arrHeading; // in the order of the table of headings
    CClickText m_InfoLink;                  // the first value as a link
    CClickText m_MoreInfo;                  // the third value, which a click opens
    CExtendButton m_ViewButton;
    CExtendButton m_SettingButton;
    CExtendButton m_ExportButton; // lent by the form; without it nothing happens
    CExtendButton m_DeleteButton;
    int m_nListSortColumn = -1; // what the header shows
    int m_nListSortUp = 1;
    int m_nSortColumn = -1;     // the last column clicked; -1 after each load
    bool m_bSortToggle = false; // the last click on that column asked for the downward order

    std::uint32_t m_nLogFileBytes = 0;
    std::map<std::wstring, std::uint32_t> m_mapLogFiles;   // date text to file size
    std::map<std::uint32_t, std::uint32_t> m_mapTypeIndex; // log type to its entry in the combo
};
