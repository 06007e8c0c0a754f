#pragma once

#include "framework/ui/kestrix/controls/BitmapDialog.h"

#include <cstdint>

// The report page, the first tab of a form with a report. It shows its background and counts nothing yet.
class CKxReportDlg : public CBitmapDialog
{
public:
    CKxReportDlg();

    BOOL OnInitDialog() override;

    // The events that the report counts.
    std::uint32_t TotalCount() const { return m_nTotal; }

    // Set by the form before the page is made.
    std::uint32_t m_nReportSpan = 0;
    CDialog* m_pParentForm = nullptr;

private:
    std::uint32_t m_nTotal = 0;
};
