#include "tests/ui/framework/ui/kestrix/app/FormTest.h"

namespace
{

constexpr UINT NextStep = WM_APP + 1;
constexpr UINT_PTR LimitTimer = 4711;
constexpr UINT Limit = 20'000; // milliseconds

} // namespace

const MessageMap& ScriptedForm::Map()
{
    static constexpr auto rows =
        MessageRows(On::Message<NextStep, &ScriptedForm::OnNextStep>, On::Message<WM_TIMER, &ScriptedForm::OnTimer>);
    static constexpr MessageMap map{rows, &CLogFormDlg::Map};
    return map;
}

INT_PTR ScriptedForm::Run(std::vector<Step> steps)
{
    m_steps = std::move(steps);
    m_nStep = 0;
    return DoModal();
}

INT_PTR ScriptedForm::RunToItsOwnEnd(std::vector<Step> steps)
{
    m_bEndsItself = true;
    return Run(std::move(steps));
}

BOOL ScriptedForm::OnInitDialog()
{
    ::SetTimer(m_hWnd, LimitTimer, Limit, nullptr);
    PostMessage(NextStep);
    return CLogFormDlg::OnInitDialog();
}

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

LRESULT ScriptedForm::OnNextStep(WPARAM, LPARAM)
{
    if (m_nStep < m_steps.size())
    {
        m_steps[m_nStep++]();
        PostMessage(NextStep);
    }
    else if (!m_bEndsItself)
    {
        EndDialog(EndedByTest);
    }
    return 0;
}

void ScriptedForm::OnTimer(UINT_PTR timer)
{
    if (timer == LimitTimer)
    {
        EndDialog(EndedByLimit);
    }
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
