#include "platform/dialog/Dialog.h"

#include "platform/dialog/DialogTemplate.h"
#include "platform/dialog/Exceptions.h"
#include "platform/dialog/MessageLoop.h"
#include "platform/dialog/ModuleState.h"
#include "platform/dialog/WinApp.h"

void DDX_Control(CDataExchange& exchange, int id, CWnd& control)
{
    if (control.GetSafeHwnd() == nullptr)
    {
        control.SubclassDlgItem(id, exchange.m_hDlg);
    }
}

void DDX_Text(CDataExchange& exchange, int id, std::wstring& text)
{
    CWindow dialog(exchange.m_hDlg);
    if (exchange.m_bSaveAndValidate)
    {
        text = dialog.GetDlgItemText(id);
    }
    else
    {
        dialog.SetDlgItemText(id, text);
    }
}

const MessageMap& CDialog::Map()
{
    static constexpr auto rows =
        MessageRows(On::Command<IDOK, &CDialog::OnOK>, On::Command<IDCANCEL, &CDialog::OnCancel>);
    static constexpr MessageMap map{rows, &CWnd::Map};
    return map;
}

INT_PTR CDialog::DoModal()
{
    if (m_hWnd != nullptr)
    {
        return -1;
    }
    m_state = State::Modal;
    m_nResult = -1;
    DisableOwner();
    if (CreateFromTemplate(m_hOwner, true))
    {
        RunModal();
    }
    EnableOwner();
    DestroyWindow();
    m_state = State::Idle;
    return m_nResult;
}

void CDialog::RunModal()
{
    if (m_state == State::Modal)
    {
        ShowWindow(SW_SHOWNORMAL);
        TellShown();
    }
    int exitCode = 0;
    const auto isDone = [this] { return m_state != State::Modal || m_hWnd == nullptr; };
    if (!RunMessageLoop(m_hWnd, isDone, exitCode))
    {
        ::PostQuitMessage(exitCode);
        m_nResult = -1;
    }
}

bool CDialog::Create(UINT templateId, CWnd* parent)
{
    m_nTemplate = templateId;
    return m_hWnd == nullptr && CreateFromTemplate(parent != nullptr ? parent->GetSafeHwnd() : nullptr, false);
}

bool CDialog::CreateFromTemplate(HWND parent, bool hidden)
{
    DialogTemplate dialogTemplate(m_nTemplate);
    if (!dialogTemplate.IsLoaded())
    {
        return false;
    }
    if (hidden)
    {
        dialogTemplate.RemoveVisibleStyle();
    }
    m_bInitFailed = false;
    const HWND window = ::CreateDialogIndirectParamW(AfxGetInstanceHandle(), dialogTemplate.Get(), parent,
                                                     &DialogProcedure, reinterpret_cast<LPARAM>(this));
    if (m_bInitFailed)
    {
        ::DestroyWindow(window); // which may not have become this object's
    }
    return m_hWnd != nullptr;
}

// Only the first message is of use here: from then on the object stands before the window.
INT_PTR CALLBACK CDialog::DialogProcedure(HWND window, UINT message, WPARAM, LPARAM lParam) noexcept
{
    if (message != WM_INITDIALOG || FromHandlePermanent(window) != nullptr)
    {
        return FALSE;
    }
    auto& dialog = *reinterpret_cast<CDialog*>(lParam);
    try
    {
        return dialog.Initialise(window);
    }
    catch (...)
    {
        dialog.m_bInitFailed = true;
        dialog.m_nResult = -1;
        ReportHandlerException(std::current_exception());
        return FALSE;
    }
}

BOOL CDialog::Initialise(HWND window)
{
    if (!SubclassWindow(window))
    {
        AtlThrow(E_UNEXPECTED);
    }
    OwnWindow();
    UpdateData(false);
    return OnInitDialog();
}

void CDialog::UpdateData(bool saveAndValidate)
{
    CDataExchange exchange{m_hWnd, saveAndValidate};
    DoDataExchange(exchange);
}

void CDialog::TellShown()
{
    try
    {
        OnShown();
    }
    catch (...)
    {
        ReportHandlerException(std::current_exception());
    }
}

void CDialog::EndDialog(INT_PTR result)
{
    if (m_state == State::Modal)
    {
        m_state = State::Ended;
        m_nResult = result;
        // Enabled before this window hides, since the system looks for an enabled window to activate then.
        EnableOwner();
        PostMessage(WM_NULL); // the loop may wait for a message
    }
    ShowWindow(SW_HIDE);
}

void CDialog::DisableOwner()
{
    const HWND parent = m_pParent != nullptr ? m_pParent->GetSafeHwnd() : nullptr;
    m_hOwner = parent != nullptr ? ::GetAncestor(parent, GA_ROOT) : AfxGetModalOwner();
    m_bOwnerDisabled = m_hOwner != nullptr && !::EnableWindow(m_hOwner, FALSE);
}

void CDialog::EnableOwner()
{
    if (m_bOwnerDisabled)
    {
        m_bOwnerDisabled = false;
        ::EnableWindow(m_hOwner, TRUE);
    }
}

BOOL CDialog::PreTranslateMessage(MSG& message)
{
    const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    const bool isPart = (GetStyle() & DS_CONTROL) != 0;
    return isKey && !isPart && m_hWnd != nullptr && ::IsDialogMessageW(m_hWnd, &message);
}
