#include "common/Frwk_EventSinkControl.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "platform/dialog/Exceptions.h"

namespace Frwk::Interface
{

HRESULT EventSinkControl::QueryInterface(REFIID id, void** object)
{
    if (object == nullptr)
    {
        return E_POINTER;
    }
    *object = nullptr;
    if (id == __uuidof(IUnknown) || id == __uuidof(IVdFrwkLocalEvents))
    {
        *object = static_cast<IVdFrwkLocalEvents*>(this);
    }
    else if (id == __uuidof(IVdFrwkSessionEvents))
    {
        *object = static_cast<IVdFrwkSessionEvents*>(this);
    }
    else if (id == __uuidof(IVdFrwkRemoteEvents))
    {
        *object = static_cast<IVdFrwkRemoteEvents*>(this);
    }
    else
    {
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

HRESULT EventSinkControl::Deliver(const wchar_t* method, HRESULT (EventSinkControl::*operation)(const Event&),
                                  const Event& event)
{
    if (!connected)
    {
        VD_TRACE(Error, L"*** EventSinkControl::::%s() - No connection to Service framework.", method);
        return EventNotWanted;
    }
    try
    {
        return (this->*operation)(event);
    }
    catch (...)
    {
        ReportHandlerException(std::current_exception());
        return E_UNEXPECTED;
    }
}

HRESULT EventSinkControl::OnCommandEvent(ULONG event, ULONG messageType, ULONG messageSubType, ULONG word1, ULONG word2,
                                         ULONG word3, ULONG word4, VdFrwkBlock block1, VdFrwkBlock block2,
                                         LPSAFEARRAY data)
{
    return Deliver(L"OnCommandEvent", &EventSinkControl::OnCommand,
                   {event, messageType, messageSubType, {word1, word2, word3, word4}, {block1, block2}, data, {}});
}

HRESULT EventSinkControl::OnProfileEvent(ULONG event, VdFrwkBlock block, ULONG messageType, ULONG messageSubType,
                                         ULONG word1, ULONG word2, ULONG word3, ULONG word4, VdFrwkBlock block1,
                                         VdFrwkBlock block2, LPSAFEARRAY data)
{
    return Deliver(L"OnProfileEvent", &EventSinkControl::OnProfile,
                   {event, messageType, messageSubType, {word1, word2, word3, word4}, {block1, block2}, data, block});
}

HRESULT EventSinkControl::OnStatusEvent(ULONG event, VdFrwkBlock block, ULONG messageType, ULONG messageSubType,
                                        ULONG word1, ULONG word2, ULONG word3, ULONG word4, VdFrwkBlock block1,
                                        VdFrwkBlock block2, LPSAFEARRAY data)
{
    return Deliver(L"OnStatusEvent", &EventSinkControl::OnStatus,
                   {event, messageType, messageSubType, {word1, word2, word3, word4}, {block1, block2}, data, block});
}

HRESULT EventSinkControl::OnPropertyEvent(ULONG event, VdFrwkBlock block, ULONG messageType, ULONG messageSubType,
                                          ULONG word1, ULONG word2, ULONG word3, ULONG word4, VdFrwkBlock block1,
                                          VdFrwkBlock block2, LPSAFEARRAY data)
{
    return Deliver(L"OnPropertyEvent", &EventSinkControl::OnProperty,
                   {event, messageType, messageSubType, {word1, word2, word3, word4}, {block1, block2}, data, block});
}

HRESULT EventSinkControl::OnSessionEvent(ULONG event, ULONG messageType, ULONG messageSubType, ULONG word1, ULONG word2,
                                         ULONG word3, VdFrwkBlock block1, VdFrwkBlock block2, LPSAFEARRAY data)
{
    return Deliver(L"OnSessionEvent", &EventSinkControl::OnSession,
                   {event, messageType, messageSubType, {word1, word2, word3}, {block1, block2}, data, {}});
}

HRESULT EventSinkControl::OnDetectionEvent(ULONG event, ULONG messageType, ULONG messageSubType, ULONG word1,
                                           ULONG word2, ULONG word3, ULONG word4, VdFrwkBlock block1,
                                           VdFrwkBlock block2, LPSAFEARRAY data)
{
    return Deliver(L"OnDetectionEvent", &EventSinkControl::OnDetection,
                   {event, messageType, messageSubType, {word1, word2, word3, word4}, {block1, block2}, data, {}});
}

} // namespace Frwk::Interface
