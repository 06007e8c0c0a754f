#pragma once

#include "platform/dialog/UniqueHandle.h"
#include "suite/common/KernelHandle.h"

#include <string>

// What the second process tries with its mutex.
struct MutexTrial
{
    std::wstring name;
    bool exclusive;
    bool initialOwner;
};

// A second process of this test program, which makes a Mutex and holds its handle, never releasing it, until its end.
class MutexHolder
{
public:
    // The name for a trial that no other run of the tests uses.
    static std::wstring UniqueName();

    // Starts the process and waits until it has tried Create.
    explicit MutexHolder(const MutexTrial& trial);
    MutexHolder(const MutexHolder&) = delete;
    MutexHolder& operator=(const MutexHolder&) = delete;
    ~MutexHolder();

    // Lets the process end and waits for that. Gives what Create gave there.
    bool End();

private:
    UniqueKernelHandle m_hTried;
    UniqueKernelHandle m_hEnd;
    Suite::KernelHandle m_hProcess;
};
