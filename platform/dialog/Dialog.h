#pragma once

#include "platform/dialog/Wnd.h"

// One pass over a dialog's controls: from the members into the controls, or back.
struct CDataExchange
{
    HWND m_hDlg;
    bool m_bSaveAndValidate; // true: from the controls into the members
};

// Attaches the object to the control, once. A control that the template does not have leaves the object without window.
void DDX_Control(CDataExchange& exchange, int id, CWnd& control);
void DDX_Text(CDataExchange& exchange, int id, std::wstring& text);

// A dialog made from a template of the resource module.
class CDialog : public CWnd
{
public:
    // A null parent means the application's main window, or what stands modal above it; none where there is no such.
    explicit CDialog(UINT templateId = 0, CWnd* parent = nullptr) : m_nTemplate(templateId), m_pParent(parent) {}

    // Shows the dialog, disables its owner and runs until EndDialog; the window is gone when the call returns.
    // Returns EndDialog's result; -1 when there is no template or no window, when OnInitDialog threw, when the window
    // was destroyed without EndDialog, or when WM_QUIT came, which is posted again for the loops outside.
    INT_PTR DoModal();

    // Makes a modeless dialog, or a child where the template says so. False when there is no template or no window, or
    // when OnInitDialog threw.
    bool Create(UINT templateId, CWnd* parent = nullptr);

    // Ends DoModal with this result; the window is hidden at once. A dialog that is not modal is only hidden.
    void EndDialog(INT_PTR result);

    // Moves the values between members and controls by DoDataExchange.
    void UpdateData(bool saveAndValidate);

    // Tab, Enter, Escape and accelerator keys, as dialogs treat them. A dialog with DS_CONTROL leaves its keys to the
    // one around it, whose PreTranslateMessage sees them too.
    BOOL PreTranslateMessage(MSG& message) override;

protected:
    static const MessageMap& Map(); // IDOK and IDCANCEL

    const MessageMap& GetMessageMap() const override { return Map(); }

    virtual void DoDataExchange(CDataExchange&) {}

    // The dialog and its controls stand. FALSE: the handler has set the focus.
    virtual BOOL OnInitDialog() { return TRUE; }

    // A modal dialog stands on the screen and has taken no message yet: the place for what takes long at the beginning.
    virtual void OnShown() {}

    virtual void OnOK() { EndDialog(IDOK); }

    virtual void OnCancel() { EndDialog(IDCANCEL); }

private:
    enum class State
    {
        Idle,
        Modal,
        Ended,
    };

    static INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    bool CreateFromTemplate(HWND parent, bool hidden);
    BOOL Initialise(HWND window);
    void DisableOwner();
    void EnableOwner();
    void RunModal();
    void TellShown();

    UINT m_nTemplate;
    CWnd* m_pParent; // not owned
    State m_state = State::Idle;
    INT_PTR m_nResult = -1;
    HWND m_hOwner = nullptr;       // of the modal dialog
    bool m_bOwnerDisabled = false; // by DoModal, and still to be enabled
    bool m_bInitFailed = false;
};
