#include "suite/framework/ObjectTable.h"

#include "suite/common/ComPtr.h"
#include "suite/framework/Caller.h"
#include "suite/framework/Trace.h"

#include <objbase.h>

#include <memory>
#include <new>
#include <set>
#include <utility>
#include <vector>

namespace Framework
{

namespace
{

struct WaitEnder
{
    // Returns when no callback runs any more.
    void operator()(void* wait) const noexcept { UnregisterWaitEx(wait, INVALID_HANDLE_VALUE); }
};

void CALLBACK SignalEvent(void* event, BOOLEAN)
{
    SetEvent(event);
}

} // namespace

struct ObjectTable::Client
{
    // Signals the event when the process ends, at once when it has ended before its call was carried out. Without the
    // right to watch the process nothing is signalled.
    void Watch(DWORD id, HANDLE changed)
    {
        process.reset(OpenProcess(SYNCHRONIZE, FALSE, id));
        if (!process && GetLastError() == ERROR_INVALID_PARAMETER) // there is no such process
        {
            isGone = true;
            SetEvent(changed);
            return;
        }
        if (!process)
        {
            Trace("A client cannot be watched; what it holds stays when it dies.");
            return;
        }
        HANDLE made = nullptr;
        RegisterWaitForSingleObject(&made, process.get(), SignalEvent, changed, INFINITE, WT_EXECUTEONLYONCE);
        wait.reset(made);
    }

    bool HasEnded() const { return isGone || (process && WaitForSingleObject(process.get(), 0) == WAIT_OBJECT_0); }

    std::set<HeldObject*> objects;
    bool isGone = false;
    Suite::KernelHandle process;
    std::unique_ptr<void, WaitEnder> wait; // goes before the handle that it waits for
};

HeldObject::HeldObject(ObjectTable& table, IUnknown* identity) : m_table(table), m_pIdentity(identity)
{
    m_table.Add(*this);
}

HeldObject::~HeldObject()
{
    m_table.Remove(*this);
}

bool HeldObject::TryAddRef()
{
    ULONG count = m_nReferences;
    while (count != 0 && !m_nReferences.compare_exchange_weak(count, count + 1))
    {
    }
    return count != 0;
}

ObjectTable::ObjectTable() : m_changed(CreateEventW(nullptr, FALSE, FALSE, nullptr))
{
    if (!m_changed)
    {
        throw std::bad_alloc();
    }
}

ObjectTable::~ObjectTable() = default;

void ObjectTable::Lock()
{
    const std::lock_guard guard(m_mutex);
    CountOneMore();
}

void ObjectTable::Unlock()
{
    const std::lock_guard guard(m_mutex);
    CountOneLess();
}

std::optional<std::chrono::steady_clock::time_point> ObjectTable::UnusedSince() const
{
    const std::lock_guard guard(m_mutex);
    return m_nUses == 0 ? std::optional(m_unusedSince) : std::nullopt;
}

bool ObjectTable::WasUsed() const
{
    const std::lock_guard guard(m_mutex);
    return m_bWasUsed;
}

bool ObjectTable::DisconnectEndedClients()
{
    std::vector<Suite::ComPtr<IUnknown>> left;
    {
        const std::lock_guard guard(m_mutex);
        for (const auto& [process, client] : m_clients)
        {
            if (!client->HasEnded())
            {
                continue;
            }
            for (HeldObject* const object : client->objects)
            {
                if (object->TryAddRef())
                {
                    left.push_back(Suite::ComPtr<IUnknown>::Attach(object->m_pIdentity));
                }
            }
        }
    }
    for (const Suite::ComPtr<IUnknown>& object : left)
    {
        CoDisconnectObject(object.Get(), 0);
    }
    return !left.empty();
}

void ObjectTable::Add(HeldObject& object)
{
    const DWORD process = CallingProcess();
    const std::lock_guard guard(m_mutex);
    auto place = m_clients.find(process);
    if (place == m_clients.end())
    {
        auto client = std::make_unique<Client>();
        if (process != GetCurrentProcessId())
        {
            client->Watch(process, Changed());
        }
        place = m_clients.emplace(process, std::move(client)).first;
    }
    place->second->objects.insert(&object);
    m_bWasUsed = true;
    CountOneMore();
}

void ObjectTable::Remove(HeldObject& object)
{
    const std::lock_guard guard(m_mutex);
    for (auto place = m_clients.begin(); place != m_clients.end(); ++place)
    {
        if (place->second->objects.erase(&object) == 1)
        {
            if (place->second->objects.empty())
            {
                m_clients.erase(place);
            }
            break;
        }
    }
    CountOneLess();
}

void ObjectTable::CountOneMore()
{
    CoAddRefServerProcess();
    ++m_nUses;
}

void ObjectTable::CountOneLess()
{
    CoReleaseServerProcess();
    if (--m_nUses == 0)
    {
        m_unusedSince = std::chrono::steady_clock::now();
        SetEvent(Changed());
    }
}

} // namespace Framework
