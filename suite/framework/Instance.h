#pragma once

#include "suite/common/KernelHandle.h"

namespace Framework
{

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

    // Makes this process the service, after one that is just ending has ended. False when another one is the service,
    // or the one that ends takes longer than a minute.
    bool Acquire();

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
