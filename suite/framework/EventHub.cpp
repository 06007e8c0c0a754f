#include "suite/framework/EventHub.h"

#include "common/VdFrwk.h"
#include "suite/framework/Apartment.h"
#include "suite/framework/Trace.h"

#include <algorithm>
#include <condition_variable>
#include <map>
#include <mutex>
#include <utility>

namespace Framework
{

namespace
{

// Results of a call that do not come from the client: there is none at the other end any more.
constexpr HRESULT Gone[] = {
    RPC_E_DISCONNECTED,
    RPC_E_SERVER_DIED,
    RPC_E_SERVER_DIED_DNE,
    CO_E_OBJNOTCONNECTED,
    RPC_E_INVALID_OBJECT,
    static_cast<HRESULT>(0x800706BA), // RPC_S_SERVER_UNAVAILABLE
    static_cast<HRESULT>(0x800706BE), // RPC_S_CALL_FAILED
    static_cast<HRESULT>(0x800706BF), // RPC_S_CALL_FAILED_DNE
};

bool IsGone(HRESULT result)
{
    return std::ranges::find(Gone, result) != std::end(Gone);
}

HRESULT Deliver(IUnknown& sink, const CommandEvent& event)
{
    // It was advised with this interface.
    return static_cast<IVdFrwkLocalEvents&>(sink).OnCommandEvent(event.event, event.messageType, event.messageSubType,
                                                                 event.word1, 0, 0, 0, {}, {}, nullptr);
}

} // namespace

struct EventHub::Subscription
{
    const void* owner;
    IID iid;
    Suite::ComPtr<IUnknown> sink; // let go by its own thread, since that can be a call to the client
    EventQueue queue{};
    bool isDropped = false;
    std::condition_variable changed{};
};

struct EventHub::Core
{
    void Drop(std::map<DWORD, std::shared_ptr<Subscription>>::iterator place)
    {
        place->second->isDropped = true;
        place->second->changed.notify_all();
        subscriptions.erase(place);
    }

    template <class Predicate>
    void DropIf(Predicate predicate)
    {
        for (auto place = subscriptions.begin(); place != subscriptions.end();)
        {
            const auto current = place++;
            if (predicate(*current->second))
            {
                Drop(current);
            }
        }
    }

    std::mutex mutex{}; // guards all that follows, and the subscriptions
    std::map<DWORD, std::shared_ptr<Subscription>> subscriptions{};
    DWORD lastCookie = 0;
    int threads = 0;
    int calls = 0;                     // threads that wait for a client, who may never answer
    std::condition_variable changed{}; // the number of threads or calls
};

EventHub::EventHub() : m_core(new Core) {}

EventHub::~EventHub()
{
    std::unique_lock lock(m_core->mutex);
    m_core->DropIf([](const Subscription&) { return true; });
    m_core->changed.wait(lock, [this] { return m_core->threads == m_core->calls; });
}

DWORD EventHub::Advise(const void* owner, const IID& iid, Suite::ComPtr<IUnknown> sink)
{
    const std::shared_ptr<Subscription> subscription(new Subscription{owner, iid, std::move(sink)});
    const std::lock_guard guard(m_core->mutex);
    const DWORD cookie = ++m_core->lastCookie;
    m_core->subscriptions.emplace(cookie, subscription);
    try
    {
        std::thread(&EventHub::Serve, m_core, subscription).detach();
    }
    catch (...)
    {
        m_core->subscriptions.erase(cookie);
        throw;
    }
    ++m_core->threads; // its first step waits for the mutex
    return cookie;
}

bool EventHub::Unadvise(const void* owner, const IID& iid, DWORD cookie)
{
    const std::lock_guard guard(m_core->mutex);
    const auto found = m_core->subscriptions.find(cookie);
    if (found == m_core->subscriptions.end() || found->second->owner != owner || found->second->iid != iid)
    {
        return false;
    }
    m_core->Drop(found);
    return true;
}

void EventHub::UnadviseAll(const void* owner)
{
    const std::lock_guard guard(m_core->mutex);
    m_core->DropIf([owner](const Subscription& subscription) { return subscription.owner == owner; });
}

std::vector<AdvisedSink> EventHub::Sinks(const void* owner, const IID& iid) const
{
    const std::lock_guard guard(m_core->mutex);
    std::vector<AdvisedSink> sinks;
    for (const auto& [cookie, subscription] : m_core->subscriptions)
    {
        if (subscription->owner == owner && subscription->iid == iid)
        {
            sinks.push_back({cookie, subscription->sink});
        }
    }
    return sinks;
}

void EventHub::Raise(const CommandEvent& event)
{
    bool isOneLost = false;
    {
        const std::lock_guard guard(m_core->mutex);
        for (const auto& [cookie, subscription] : m_core->subscriptions)
        {
            if (subscription->iid == __uuidof(IVdFrwkLocalEvents))
            {
                isOneLost = !subscription->queue.Push(event) || isOneLost;
                subscription->changed.notify_all();
            }
        }
    }
    if (isOneLost)
    {
        Trace("Too many events wait for a client that does not answer; it does not get the oldest.");
    }
}

void EventHub::Serve(std::shared_ptr<Core> core, std::shared_ptr<Subscription> subscription)
{
    std::unique_lock lock(core->mutex);
    {
        const Apartment apartment;
        while (true)
        {
            subscription->changed.wait(lock, [&] { return subscription->isDropped || !subscription->queue.IsEmpty(); });
            if (subscription->isDropped)
            {
                break;
            }
            const CommandEvent event = subscription->queue.Pop();
            ++core->calls;
            core->changed.notify_all();
            lock.unlock();
            const HRESULT result = Deliver(*subscription->sink.Get(), event);
            lock.lock();
            --core->calls;
            if (IsGone(result))
            {
                core->DropIf([&](const Subscription& other) { return &other == subscription.get(); });
            }
        }
        ++core->calls; // to let it go is a call to the client, too
        core->changed.notify_all();
        lock.unlock();
        subscription->sink.Reset();
    }
    lock.lock();
    --core->calls;
    --core->threads;
    core->changed.notify_all();
}

} // namespace Framework
