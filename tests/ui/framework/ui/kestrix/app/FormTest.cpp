#include "tests/ui/framework/ui/kestrix/app/FormTest.h"

#include "resource/resource.h"

CKestrixDlg* ScriptedForm::Page() const
{
    for (HWND child = ::GetWindow(m_hWnd, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT))
    {
        if (auto* const page = dynamic_cast<CKestrixDlg*>(CWnd::FromHandlePermanent(child)))
        {
            return page;
        }
    }
    return nullptr;
}

FormTest::FormTest()
{
    m_app.m_pIDBManagerProvider = &m_database;
    m_form.m_strLogPath = m_folder.File(L"20261120.VLG");
    m_form.m_nLogType = LogTypeVirus;
    m_form.m_bLogOnly = true;
    m_form.m_pPageHost = &m_app;
    WriteUtf16(m_form.m_strLogPath, L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0\r\n"
                                    L"x|1030|1048576|x|0|0|alpha|C:\\a|4|1|0|0\r\n"
                                    L"x|0930|1048576|x|0|0|gamma|C:\\c|4|1|0|0\r\n");
}

void FormTest::SwitchTo(UINT choice)
{
    CKestrixDlg& page = *m_form.Page();
    const CWindow combo(page.GetDlgItem(IDC_LOG_TYPE));
    combo.SendMessage(CB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(Text(choice).c_str()));
    page.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_VIEW, BN_CLICKED), reinterpret_cast<LPARAM>(page.GetDlgItem(IDC_VIEW)));
}
