#pragma once

#include "platform/dialog/Semaphore.h"
#include "platform/dialog/UniqueHandle.h"

#include <memory>
#include <string>

// The place of this process among the viewers of all sessions, of which the settings allow a number.
class CRunningCount
{
public:
    enum class Answer
    {
        Taken,        // the process is counted
        LimitReached, // as many run as may; it is for this process to say so
        LimitIsShown, // the same, and another process says so already
        NameInUse,    // nothing can be counted: the system refuses the semaphore of this name
    };

    CRunningCount() = default;
    CRunningCount(const CRunningCount&) = delete;
    CRunningCount& operator=(const CRunningCount&) = delete;

    ~CRunningCount() { GiveBack(); }

    // Takes a count of the semaphore of this name.
    Answer Take(const std::wstring& name);

    // Undoes what Take has come to.
    void GiveBack();

private:
    std::unique_ptr<CSemaphore> m_pLogCountSemaphore; // as many counts as there may be viewers
    UniqueKernelHandle m_hMaxCountMutex;              // exists while the message about the limit stands
    bool m_bLogCountLocked = false;                   // one count is held
};
