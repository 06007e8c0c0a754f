#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace Framework
{

// The process whose call is being served by this thread; this one when there is no call from another.
DWORD CallingProcess();

// The SID of a token's user; empty, with the reason in GetLastError, when the system does not tell.
std::vector<BYTE> UserOf(HANDLE token);

// Who makes the call that the thread which makes the object serves.
class Caller
{
public:
    Caller();

    // As in "DESKTOP\anna (process 1234)", in UTF-8. A machine of a network may have to ask another one for the name,
    // so this is not for the thread of the call.
    std::string Name() const;

private:
    DWORD m_dwProcess;
    std::vector<BYTE> m_user; // a SID, or empty
};

} // namespace Framework
