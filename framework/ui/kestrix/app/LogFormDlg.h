#pragma once

#include "framework/ui/kestrix/app/KestrixDlg.h"
#include "framework/ui/kestrix/controls/BitmapDialog.h"

// The main window: a heading, the page of the log, and the buttons below it.
class CLogFormDlg : public CBitmapDialog
{
public:
    CLogFormDlg();

    BOOL OnInitDialog() override;

    // Set by the application before DoModal.
    std::wstring m_strLogPath;
    std::wstring m_strLocalIp;
    std::uint32_t m_nLogType = 0;
    bool m_bIsLocal = false;
    bool m_bMaxCountReached = false; // too many viewers: the form tells that and ends
    bool m_bLogOnly = false;
    std::uint32_t m_nReportSpan = 0;

protected:
    static const MessageMap& Map();

    const MessageMap& GetMessageMap() const override { return Map(); }

private:
    void OnBnClickedBtnExport();
    void OnLButtonDown(UINT keys, POINT point);

    void SetIcons();
    void CreatePage();

    CKestrixDlg m_LogPage;
    UniqueIcon m_hBigIcon;
    UniqueIcon m_hSmallIcon;
};
