#include "framework/ui/kestrix/app/KestrixEventSinkObject.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "framework/ui/kestrix/app/Kestrix.h"
#include "framework/ui/kestrix/app/KestrixDlg.h"

namespace
{

constexpr ULONG ControlEvent = 1;
constexpr ULONG ExitCommand = static_cast<ULONG>(-1); // message type

// The end of the command that purges event logs.
constexpr ULONG CommandEvent = 4;
constexpr ULONG EventLogCommand = 22; // message type
constexpr ULONG PurgeDone = 1;        // message sub type

// Nothing is cleaned up: the framework goes away, and whatever waits for it would wait for ever.
void ExitNow()
{
    VD_TRACE(Flow, L"[CKestrixEventSinkObject::OnCommandEvents] receive exit command, exit now..");
    if (dynamic_cast<CKestrixApp*>(AfxGetApp()) != nullptr)
    {
        ExitProcess(0);
    }
}

void RefreshPage()
{
    const auto* const app = dynamic_cast<CKestrixApp*>(AfxGetApp());
    if (app != nullptr && app->m_pLogDlg != nullptr && app->m_pLogDlg->GetSafeHwnd() != nullptr)
    {
        app->m_pLogDlg->RefreshLog(CKestrixDlg::AnyReason);
    }
    VD_TRACE(Flow, L"CKestrixEventSinkObject::OnCommandEvents Finish");
}

} // namespace

HRESULT CKestrixEventSinkObject::OnCommandEvents(const Frwk::Interface::Event& event)
{
    VD_TRACE(Flow,
             L"[Enter] CKestrixEventSinkObject::OnCommandEvents [event=%d] [message type=%d] [message sub type=%d]",
             event.event, event.messageType, event.messageSubType);
    if (event.event == ControlEvent && event.messageType == ExitCommand)
    {
        ExitNow();
    }
    else if (event.event == CommandEvent && event.messageType == EventLogCommand && event.messageSubType == PurgeDone)
    {
        RefreshPage();
    }
    VD_TRACE(Flow, L"[Leave] CKestrixEventSinkObject::OnCommandEvents");
    return Frwk::Interface::EventDone;
}

HRESULT CKestrixEventSinkObject::OnProfileEvents(const Frwk::Interface::Event& event)
{
    VD_TRACE(Flow,
             L"[Enter] CKestrixEventSinkObject::OnProfileEvents [event=%d] [message type=%d] [message sub type=%d]",
             event.event, event.messageType, event.messageSubType);
    VD_TRACE(Flow, L"[Leave] CKestrixEventSinkObject::OnProfileEvents");
    return S_OK;
}
