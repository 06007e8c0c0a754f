#pragma once

#include "suite/common/KernelHandle.h"

#include <windows.h>

#include <unknwn.h>

#include <atomic>
#include <chrono>
#include <map>
#include <memory>
#include <mutex>
#include <optional>

namespace Framework
{

class ObjectTable;

// An object that a client holds, with its count of references, 1 at first. It is in the table while it lives, under the
// process whose call makes it.
class HeldObject
{
public:
    HeldObject(const HeldObject&) = delete;
    HeldObject& operator=(const HeldObject&) = delete;

protected:
    // `identity` is the object's IUnknown. The table must outlive the object.
    HeldObject(ObjectTable& table, IUnknown* identity);
    ~HeldObject();

    std::atomic<ULONG> m_nReferences = 1;
    ObjectTable& m_table;

private:
    friend class ObjectTable;

    // False when the last reference is gone already.
    bool TryAddRef();

    IUnknown* const m_pIdentity;
};

// All objects that clients hold, and all locks on the service: while there is one of them, the process stays. Each also
// counts for CoAddRefServerProcess, so that no activation gets lost when the last one goes. Any thread may use it.
//
// Not every system takes away what a client held that ended without letting go, so the table watches the processes.
class ObjectTable
{
public:
    ObjectTable();
    ~ObjectTable();
    ObjectTable(const ObjectTable&) = delete;
    ObjectTable& operator=(const ObjectTable&) = delete;

    void Lock();
    void Unlock();

    // When the last object or lock went; nothing while there is one. At first the moment at which the table was made.
    std::optional<std::chrono::steady_clock::time_point> UnusedSince() const;

    // Whether there was ever an object. The service locks itself for a purge, and still waits for its first client.
    bool WasUsed() const;

    // An automatic event: the table became unused, or a client ended. Belongs to the table.
    HANDLE Changed() const { return m_changed.get(); }

    // Takes away what ended clients held; false when there was nothing. What a call of theirs still makes is not gone
    // then. The calling thread is in the multithreaded apartment.
    bool DisconnectEndedClients();

private:
    friend class HeldObject;

    struct Client;

    void Add(HeldObject& object);
    void Remove(HeldObject& object);
    void CountOneMore();
    void CountOneLess();

    const Suite::KernelHandle m_changed;
    mutable std::mutex m_mutex;                         // guards all that follows
    std::map<DWORD, std::unique_ptr<Client>> m_clients; // by process
    long m_nUses = 0;
    bool m_bWasUsed = false;
    std::chrono::steady_clock::time_point m_unusedSince = std::chrono::steady_clock::now();
};

// Holds a lock on the service; each copy one of its own.
class ServiceLock
{
public:
    explicit ServiceLock(ObjectTable& table) : m_pTable(&table) { m_pTable->Lock(); }

    ServiceLock(const ServiceLock& other) : ServiceLock(*other.m_pTable) {}

    ServiceLock& operator=(const ServiceLock&) = delete;

    ~ServiceLock() { m_pTable->Unlock(); }

private:
    ObjectTable* m_pTable;
};

} // namespace Framework
