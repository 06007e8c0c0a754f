#pragma once

#include "framework/ui/kestrix/app/SmallDialog.h"

#include <cstdint>
#include <map>
#include <string>

// Asks for the day up to which the entries of the log are deleted, and has the user confirm it. The dialog deletes
// nothing.
class CDelLogDlg : public CSmallDialog
{
public:
    CDelLogDlg();

    BOOL OnInitDialog() override;

    // Set before DoModal.
    CListBox* m_pDateList = nullptr; // the page's dates, not owned; read when the dialog opens and not after
    std::int32_t m_nTotalBytes = 0;  // of all daily files
    std::map<std::wstring, std::uint32_t> m_mapLogFiles; // date text to file size, in bytes

    // The choice, once DoModal has returned IDOK.
    std::int32_t m_nDateIndex = 0;
    std::int32_t m_nDateCount = 0; // of all dates that could be chosen
    std::wstring m_strDate;
    DWORD_PTR m_nDateData = 0; // what the list of dates carries beside the text

    // The size of what would be deleted, which no control shows.
    std::wstring m_strSizeText;

protected:
    static const MessageMap& Map();

    const MessageMap& GetMessageMap() const override { return Map(); }

    void DoDataExchange(CDataExchange& exchange) override;

    void OnOK() override;

private:
    void OnSelchangeDelDate();

    void FillDates();
    bool Confirm();

    CComboBox m_DateCombo;
};
