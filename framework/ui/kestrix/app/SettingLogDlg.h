#pragma once

#include "framework/ui/kestrix/app/SmallDialog.h"

#include <cstdint>

// Asks how long the service keeps the entries of the logs, and whether it deletes older ones by itself. The dialog
// begins with what the registry holds, and stores nothing.
class CSettingLogDlg : public CSmallDialog
{
public:
    CSettingLogDlg();

    BOOL OnInitDialog() override;

    // The user's choice, once DoModal has returned IDOK.
    std::int32_t m_nPurgeIndex = 0; // of the entry of the list
    std::uint32_t m_nPurgeFre = 0;  // days that entries are kept
    std::uint32_t m_nPurgeFlag = 0; // 1: older ones are deleted automatically

protected:
    static const MessageMap& Map();

    const MessageMap& GetMessageMap() const override { return Map(); }

    void DoDataExchange(CDataExchange& exchange) override;

private:
    void OnBnClickedOk();

    CComboBox m_FrequencyCombo;
    CButton m_PurgeCheck;
};
