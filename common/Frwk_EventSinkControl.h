#pragma once

#include "common/VdFrwk.h"

#include <atomic>

namespace Frwk::Interface
{

// The framework's success, and its answer to an event that nobody wants.
inline constexpr HRESULT EventDone = 0x40200;
inline constexpr HRESULT EventNotWanted = 0x40203;

// What an event carries. The meanings of the words, blocks and data belong to the framework.
struct Event
{
    ULONG event;
    ULONG messageType;
    ULONG messageSubType;
    ULONG words[4]; // of a session event the first three
    VdFrwkBlock blocks[2];
    LPSAFEARRAY data;    // belongs to the caller; may be null
    VdFrwkBlock subject; // of profile, status and property events; else zero
};

// The object that the framework calls: it implements the event interfaces and hands each event to the operation of its
// kind, once it is connected. An exception of an operation is reported here and answered E_UNEXPECTED.
// Release never destroys the object: its maker does, when nobody can hold a reference any more.
class EventSinkControl : public IVdFrwkLocalEvents, public IVdFrwkSessionEvents, public IVdFrwkRemoteEvents
{
public:
    EventSinkControl() = default;
    EventSinkControl(const EventSinkControl&) = delete;
    EventSinkControl& operator=(const EventSinkControl&) = delete;

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;

    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_nReferences; }

    ULONG STDMETHODCALLTYPE Release() override { return --m_nReferences; }

    // IVdFrwkLocalEvents
    HRESULT STDMETHODCALLTYPE OnCommandEvent(ULONG event, ULONG messageType, ULONG messageSubType, ULONG word1,
                                             ULONG word2, ULONG word3, ULONG word4, VdFrwkBlock block1,
                                             VdFrwkBlock block2, LPSAFEARRAY data) override;
    HRESULT STDMETHODCALLTYPE OnProfileEvent(ULONG event, VdFrwkBlock block, ULONG messageType, ULONG messageSubType,
                                             ULONG word1, ULONG word2, ULONG word3, ULONG word4, VdFrwkBlock block1,
                                             VdFrwkBlock block2, LPSAFEARRAY data) override;
    HRESULT STDMETHODCALLTYPE OnStatusEvent(ULONG event, VdFrwkBlock block, ULONG messageType, ULONG messageSubType,
                                            ULONG word1, ULONG word2, ULONG word3, ULONG word4, VdFrwkBlock block1,
                                            VdFrwkBlock block2, LPSAFEARRAY data) override;
    HRESULT STDMETHODCALLTYPE OnPropertyEvent(ULONG event, VdFrwkBlock block, ULONG messageType, ULONG messageSubType,
                                              ULONG word1, ULONG word2, ULONG word3, ULONG word4, VdFrwkBlock block1,
                                              VdFrwkBlock block2, LPSAFEARRAY data) override;

    virtual ~EventSinkControl() = default;

    // One operation for each kind of event; the result goes back to the framework.
    virtual HRESULT OnCommand(const Event& event) = 0;
    virtual HRESULT OnProfile(const Event& event) = 0;
    virtual HRESULT OnStatus(const Event& event) = 0;
    virtual HRESULT OnProperty(const Event& event) = 0;
    virtual HRESULT OnSession(const Event& event) = 0;
    virtual HRESULT OnDetection(const Event& event) = 0;

    // IVdFrwkSessionEvents
    HRESULT STDMETHODCALLTYPE OnSessionEvent(ULONG event, ULONG messageType, ULONG messageSubType, ULONG word1,
                                             ULONG word2, ULONG word3, VdFrwkBlock block1, VdFrwkBlock block2,
                                             LPSAFEARRAY data) override;
    HRESULT STDMETHODCALLTYPE OnDetectionEvent(ULONG event, ULONG messageType, ULONG messageSubType, ULONG word1,
                                               ULONG word2, ULONG word3, ULONG word4, VdFrwkBlock block1,
                                               VdFrwkBlock block2, LPSAFEARRAY data) override;

protected:
    bool connected = false; // events are let through

private:
    HRESULT Deliver(const wchar_t* method, HRESULT (EventSinkControl::*operation)(const Event&), const Event& event);

    std::atomic<ULONG> m_nReferences = 0;
};

} // namespace Frwk::Interface
