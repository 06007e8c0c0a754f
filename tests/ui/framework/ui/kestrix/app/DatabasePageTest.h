#pragma once

#include "framework/ui/kestrix/app/LogFormDlg.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/TraceRecorder.h"
#include "tests/ui/framework/ui/kestrix/app/PageTest.h"

// The viewer page of the virus log in database mode, as the form has it, with the form's two buttons.
class DatabasePageTest : public PageTest
{
protected:
    DatabasePageTest();

    void OpenPage() { Open({}); }

    bool CanExport() const { return m_export.IsWindowEnabled(); }

    bool CanDelete() const { return m_delete.IsWindowEnabled(); }

    // How often the page has traced exactly this failure.
    long ErrorCount(const std::wstring& text) const;

    const RegistrySandbox m_registry;
    TraceRecorder m_trace;
    CLogFormDlg m_form;
    CButton m_export;
    CButton m_delete;
};
