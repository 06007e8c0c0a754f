#include "framework/ui/kestrix/app/KestrixEventSinkObject.h"

#include "common/VdCommon/VdComn_DebugLog.h"

namespace
{

constexpr ULONG ControlEvent = 1;
constexpr ULONG ExitCommand = static_cast<ULONG>(-1); // message type

// The end of the command that purges event logs.
constexpr ULONG CommandEvent = 4;
constexpr ULONG EventLogCommand = 22; // message type
constexpr ULONG PurgeDone = 1;        // message sub type

} // namespace

HRESULT CKestrixEventSinkObject::OnCommandEvents(const Frwk::Interface::Event& event)
{
    VD_TRACE(Flow,
             L"[Enter] CKestrixEventSinkObject::OnCommandEvents [event=%d] [message type=%d] [message sub type=%d]",
             event.event, event.messageType, event.messageSubType);
    if (event.event == ControlEvent && event.messageType == ExitCommand)
    {
        VD_TRACE(Flow, L"[CKestrixEventSinkObject::OnCommandEvents] receive exit command, exit now..");
        m_Host.Exit();
    }
    else if (event.event == CommandEvent && event.messageType == EventLogCommand && event.messageSubType == PurgeDone)
    {
        m_Host.RefreshPage();
        VD_TRACE(Flow, L"CKestrixEventSinkObject::OnCommandEvents Finish");
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
