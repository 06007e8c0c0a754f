#pragma once

#include "suite/common/ComPtr.h"
#include "suite/framework/EventQueue.h"

#include <memory>
#include <vector>

namespace Framework
{

// An advised sink, as its client sees it.
struct AdvisedSink
{
    DWORD cookie;
    Suite::ComPtr<IUnknown> sink;
};

// The advised sinks of all clients. Each gets its events in their order from a thread of its own, so that nobody waits
// for another one's client. Those of a client that does not answer wait for it, as EventQueue.h says, however long that
// takes; a sink whose client is gone is dropped. Any thread of the multithreaded apartment may use it.
class EventHub
{
public:
    EventHub();

    // Waits for all threads but those that wait for their clients.
    ~EventHub();
    EventHub(const EventHub&) = delete;
    EventHub& operator=(const EventHub&) = delete;

    // `owner` is the object that the client advised, `sink` has the interface `iid`. Returns the cookie, never 0.
    DWORD Advise(const void* owner, const IID& iid, Suite::ComPtr<IUnknown> sink);

    // False when the cookie is none of this owner and interface, or the sink was dropped. A call that is on its way to
    // the client still arrives.
    bool Unadvise(const void* owner, const IID& iid, DWORD cookie);

    // The same for all sinks of an owner.
    void UnadviseAll(const void* owner);

    std::vector<AdvisedSink> Sinks(const void* owner, const IID& iid) const;

    // Takes the event for every sink of IVdFrwkLocalEvents, and returns before any has got it.
    void Raise(const CommandEvent& event);

private:
    struct Subscription;
    struct Core;

    static void Serve(std::shared_ptr<Core> core, std::shared_ptr<Subscription> subscription);

    // Shared with the threads, of which those that wait for a client may outlive this object.
    const std::shared_ptr<Core> m_core;
};

} // namespace Framework
