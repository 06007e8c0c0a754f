#include "common/VdCommon/VdComn_Session.h"

#include "common/VdCommon/VdComn_Platform.h"
#include "common/VdCommon/VdComn_Procedure.h"
#include "platform/dialog/SystemLibrary.h"
#include "platform/dialog/UniqueHandle.h"

#include <windows.h>

namespace VdCommon
{

namespace
{

constexpr DWORD ServiceSession = 0;

// Looked up at run time, since not every platform has them.
template <class Function>
bool FindIn(UniqueModule& library, const wchar_t* libraryName, Function** function, const wchar_t* name) noexcept
{
    library.reset(LoadSystemLibrary(libraryName));
    return GetProcedure(library.get(), function, name);
}

// From Windows Vista on the services have a session of their own.
bool IsInServiceSession() noexcept
{
    UniqueModule kernel32;
    decltype(&::ProcessIdToSessionId) processIdToSessionId = nullptr;
    DWORD session = 0;
    return FindIn(kernel32, L"kernel32.dll", &processIdToSessionId, L"ProcessIdToSessionId") &&
           processIdToSessionId(::GetCurrentProcessId(), &session) && session == ServiceSession;
}

// Before it they shared the first user's session, and only their account told them apart.
bool IsLocalSystem() noexcept
{
    UniqueModule advapi32;
    UniqueModule again;
    decltype(&::CreateWellKnownSid) createWellKnownSid = nullptr;
    decltype(&::CheckTokenMembership) checkTokenMembership = nullptr;
    BYTE sid[SECURITY_MAX_SID_SIZE];
    DWORD size = sizeof sid;
    BOOL isMember = FALSE;
    return FindIn(advapi32, L"advapi32.dll", &createWellKnownSid, L"CreateWellKnownSid") &&
           FindIn(again, L"advapi32.dll", &checkTokenMembership, L"CheckTokenMembership") &&
           createWellKnownSid(WinLocalSystemSid, nullptr, sid, &size) &&
           checkTokenMembership(nullptr, sid, &isMember) && isMember;
}

} // namespace

bool IsServiceSession() noexcept
{
    if (!IsPlatform(PlatformWindows2000))
    {
        return false;
    }
    return IsPlatform(PlatformVista) ? IsInServiceSession() : IsLocalSystem();
}

} // namespace VdCommon
