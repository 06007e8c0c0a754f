#pragma once

#include "framework/ui/kestrix/app/FramedDialog.h"
#include "framework/ui/kestrix/app/KestrixDlg.h"
#include "framework/ui/kestrix/controls/ColorText.h"
#include "framework/ui/kestrix/controls/ExtendButton.h"
#include "framework/ui/kestrix/controls/FlexBitmapButton.h"
#include "framework/ui/kestrix/controls/TabCtrlEx.h"
#include "framework/ui/kestrix/report/KxReportDlg.h"
#include "framework/ui/kestrix/report/ReportHost.h"

// The main window: the skin frame with heading and caption buttons, the pages, and the buttons below them. It shows the
// page of the log alone, or the report and the page of the log as two tabs.
class CLogFormDlg : public CFramedDialog, private CReportHost
{
public:
    CLogFormDlg();

    BOOL OnInitDialog() override;
    void OnShown() override;
    BOOL PreTranslateMessage(MSG& message) override;

    // Shows a topic of the help file by its number; 0 is the first one.
    static void extHtmlHelp(UINT id);

    // Set by the application before DoModal.
    std::wstring m_strLogPath;
    std::wstring m_strLocalIp;
    bool m_bMaxCountReached = false; // too many viewers run: only a message is shown
    std::uint32_t m_nLogType = 0;    // never changes, also when the page switches to another log
    bool m_bIsLocal = false;
    bool m_bLogOnly = false;
    std::uint32_t m_nReportSpan = 0;
    CPageHost* m_pPageHost = nullptr; // of the viewer page

protected:
    static const MessageMap& Map();

    const MessageMap& GetMessageMap() const override { return Map(); }

    void PreSubclassWindow() override;
    void DoDataExchange(CDataExchange& exchange) override;
    void OnOK() override;
    void OnCancel() override;

private:
    // CReportHost
    void ShowLog(std::uint32_t logType) override;

    void OnPaint();
    HCURSOR OnQueryDragIcon();
    LRESULT OnActivate(WPARAM how, LPARAM other);
    void OnEnable(bool enabled);
    void OnBnClickedMinimise();
    LRESULT OnHelpKey(WPARAM, LPARAM);
    void OnHelp();
    void OnBnClickedBtnHelp();
    void OnBnClickedBtnExport();

    void OnBnClickedBtnDelete() { m_LogPage.OnBnClickedBtnDelete(); }

    void SetIcons();
    void HandValuesToPages();
    void CreatePages();
    void SetTabLook();
    void SetTitle();
    void SetReportLabels();
    void DrawIcon();
    bool TranslateKeyDown(const MSG& message);
    bool TranslateTabSpace();
    UINT HelpNumber() const;

    CTabCtrlEx m_Tab;
    CKxReportDlg m_ReportPage;
    CKestrixDlg m_LogPage;
    CColorText m_Heading;
    CColorText m_ReportTitle;
    CColorText m_ReportTotal;
    CFlexBitmapButton m_MinimiseButton;
    CFlexBitmapButton m_CloseBoxButton;
    CExtendButton m_HelpButton;
    CExtendButton m_CloseButton;
    CExtendButton m_ExportButton;
    CExtendButton m_DeleteButton;
    std::wstring m_strProductName;
    UniqueIcon m_hBigIcon;
    UniqueIcon m_hSmallIcon;
    UniqueCursor m_hHand;
};
