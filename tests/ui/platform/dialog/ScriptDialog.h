#pragma once

#include "tests/ui/platform/dialog/TestResources.h"
#include "tests/ui/platform/dialog/TestWindows.h"

#include <functional>

// A dialog that notes the steps of its life and does what a test wants in them.
class CScriptDialog : public CDialog
{
public:
    explicit CScriptDialog(UINT templateId = IDD_TEST_DIALOG, CWnd* parent = nullptr) : CDialog(templateId, parent) {}

    using Script = std::function<void(CScriptDialog&)>;

    Script m_inInit;
    Script m_whenShown;
    Script m_inLoop; // in the first message that the loop dispatches
    std::function<BOOL(MSG&)> m_inPreTranslate;
    BOOL m_initResult = TRUE;
    bool m_traceLook = false; // note visibility and owner's state when hidden
    Notes m_notes;
    std::wstring m_text = L"initial";
    CWnd m_edit;
    CWnd m_missing;

    using CDialog::OnCancel;
    using CDialog::OnOK;

    BOOL PreTranslateMessage(MSG& message) override
    {
        if (m_inPreTranslate && m_inPreTranslate(message))
        {
            return TRUE;
        }
        return CDialog::PreTranslateMessage(message);
    }

protected:
    static constexpr UINT InLoop = WM_APP + 1;

    static const MessageMap& Map()
    {
        static constexpr auto rows = MessageRows(On::Message<InLoop, &CScriptDialog::OnInLoop>,
                                                 On::Message<WM_SHOWWINDOW, &CScriptDialog::OnShowWindow>,
                                                 On::Message<WM_DESTROY, &CScriptDialog::OnDestroy>);
        static constexpr MessageMap map{rows, &CDialog::Map};
        return map;
    }

    const MessageMap& GetMessageMap() const override { return Map(); }

    void PreSubclassWindow() override { m_notes.push_back(L"subclass"); }

    void DoDataExchange(CDataExchange& exchange) override
    {
        m_notes.push_back(Note(L"exchange", exchange.m_bSaveAndValidate));
        DDX_Control(exchange, IDC_TEST_EDIT, m_edit);
        DDX_Control(exchange, 9999, m_missing);
        DDX_Text(exchange, IDC_TEST_STATIC, m_text);
    }

    void OnShown() override
    {
        if (m_whenShown)
        {
            m_whenShown(*this);
        }
    }

    BOOL OnInitDialog() override
    {
        m_notes.push_back(Note(L"init", CDialog::OnInitDialog()));
        PostMessage(InLoop);
        if (m_inInit)
        {
            m_inInit(*this);
        }
        return m_initResult;
    }

private:
    LRESULT OnInLoop(WPARAM, LPARAM)
    {
        if (const auto script = m_inLoop)
        {
            script(*this);
        }
        return 0;
    }

    LRESULT OnShowWindow(WPARAM show, LPARAM)
    {
        if (m_traceLook)
        {
            m_notes.push_back(
                Note(show ? L"shown" : L"hidden", L"owner", ::IsWindowEnabled(GetWindow(m_hWnd, GW_OWNER))));
        }
        return Default();
    }

    void OnDestroy()
    {
        m_notes.push_back(L"destroy");
        Default();
    }
};
