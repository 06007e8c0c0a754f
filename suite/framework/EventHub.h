#pragma once

#include "suite/common/ComPtr.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <thread>
#include <vector>

namespace Framework
{

// What OnCommandEvent tells; the other words and blocks are 0, and there are no data.
struct CommandEvent
{
    std::uint32_t event;
    std::uint32_t messageType;
    std::uint32_t messageSubType;
    std::uint32_t word1 = 0;
};

// An advised sink, as its client sees it.
struct AdvisedSink
{
    DWORD cookie;
    Suite::ComPtr<IUnknown> sink;
};

// The advised sinks of all clients. Each gets its events in their order from a thread of its own, so that nobody waits
// for another one's client. A sink whose client is gone, or does not answer a call within the limit, is dropped: it
// gets nothing any more. Any thread of the multithreaded apartment may use it.
class EventHub
{
public:
    explicit EventHub(std::chrono::milliseconds limit);

    // Waits for all threads but those whose clients hang.
    ~EventHub();
    EventHub(const EventHub&) = delete;
    EventHub& operator=(const EventHub&) = delete;

    // `owner` is the object that the client advised, `sink` has the interface `iid`. Gives the cookie, never 0.
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

    // Shared with the threads, of which one that hangs may outlive this object.
    const std::shared_ptr<Core> m_core;
    std::thread m_watcher;
};

} // namespace Framework
