#pragma once

#include "suite/common/KernelHandle.h"

#include <chrono>
#include <stdexcept>

namespace Framework
{

// Somebody keeps this process from being the service; the text says who, and what to do.
class InstanceBlocked : public std::runtime_error
{
    using std::runtime_error::runtime_error;
};

// The service is one process in a session, as the events go to all clients; this is how its processes know of one
// another. It belongs to the thread that made it.
class Instance
{
public:
    // Throws std::system_error.
    Instance();
    ~Instance();
    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;

    // Makes this process the service, after one that is just ending has ended. False when another one is the service.
    // Throws InstanceBlocked when none is after the time: the client that started this process waits with it.
    bool Acquire(std::chrono::milliseconds longestWait = std::chrono::seconds(5));

    // Says whether this process, which is the service, takes clients.
    void SetRunning(bool isRunning);

    // An automatic event: somebody called RequestExit. Belongs to this object.
    HANDLE ExitRequested() const { return m_exit.get(); }

    // Has the process that is the service tell its clients to exit. False when there is no such process.
    static bool RequestExit();

private:
    Suite::KernelHandle m_mutex;
    Suite::KernelHandle m_running;
    Suite::KernelHandle m_exit;
    bool m_bOwnsMutex = false;
};

} // namespace Framework
