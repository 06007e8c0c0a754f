#pragma once

#include "common/Frwk_EventSinkControl.h"
#include "platform/dialog/ComPtr.h"

#include <cstdint>

namespace Frwk::Interface
{

// Kinds of events, bits of a sink's mask. Each comes through the connection named with it.
enum EventMask : std::uint32_t
{
    CommandEvents = 1,    // local
    ProfileEvents = 2,    // local
    StatusEvents = 4,     // local
    PropertyEvents = 8,   // local
    SessionEvents = 16,   // session
    DetectionEvents = 32, // session

    LocalConnection = CommandEvents | ProfileEvents | StatusEvents | PropertyEvents,
    SessionConnection = SessionEvents | DetectionEvents,
};

// A sink and its connection to the framework. Lets the kinds of its mask through to the operations that a derived
// class implements, and answers all others EventNotWanted. Initialize and Uninitialize are for the main thread.
class EventSinkHandler : public EventSinkControl
{
public:
    // mask: EventMask bits.
    explicit EventSinkHandler(std::uint32_t mask) noexcept : m_nEventMask(mask) {}

    // Connects to the framework as the mask wants; 0x40200 when it wants nothing. A connection that is refused is a
    // failure, and events of the other one are let through all the same.
    HRESULT Initialize();

    // Ends the connections, so that nothing of the framework reaches the object any more. Returns the result of the
    // last one ended.
    HRESULT Uninitialize();

    HRESULT OnCommand(const Event& event) override;
    HRESULT OnProfile(const Event& event) override;
    HRESULT OnStatus(const Event& event) override;
    HRESULT OnProperty(const Event& event) override;
    HRESULT OnSession(const Event& event) override;
    HRESULT OnDetection(const Event& event) override;

    // What the events of the mask come to; EventNotWanted unless overridden.
    virtual HRESULT OnCommandEvents(const Event& event);
    virtual HRESULT OnProfileEvents(const Event& event);
    virtual HRESULT OnStatusEvents(const Event& event);
    virtual HRESULT OnPropertyEvents(const Event& event);
    virtual HRESULT OnSessionEvents(const Event& event);
    virtual HRESULT OnDetectionEvents(const Event& event);

private:
    bool Wants(std::uint32_t kinds) const noexcept { return (m_nEventMask & kinds) != 0; }

    HRESULT GetOwnUnknown(CComPtr<IUnknown>& own);
    HRESULT Connect(IUnknown* own);
    HRESULT Disconnect();
    void ForceDisconnect();

    CComPtr<IVdFrwkLocalController> m_pLocalController;
    CComPtr<IUnknown> m_pSecondController; // never set
    std::uint32_t m_nEventMask;
    DWORD m_nLocalCookie = 0;
    DWORD m_nSessionCookie = 0;
};

} // namespace Frwk::Interface
