#include "suite/framework/CallerAccess.h"

#include "suite/common/KernelHandle.h"
#include "suite/framework/Caller.h"

#include <objbase.h>

#include <system_error>

namespace Framework
{

namespace
{

constexpr DWORD LocalCalls = COM_RIGHTS_EXECUTE | COM_RIGHTS_EXECUTE_LOCAL;

void Require(BOOL isDone)
{
    if (!isDone)
    {
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                                "the list of those who may call the service cannot be made");
    }
}

std::vector<BYTE> UserOfThisProcess()
{
    HANDLE opened = nullptr;
    Require(OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened));
    const Suite::KernelHandle token(opened);
    std::vector<BYTE> user = UserOf(token.get());
    Require(!user.empty());
    return user;
}

} // namespace

CallerAccess::CallerAccess() : m_user(UserOfThisProcess())
{
    DWORD size = static_cast<DWORD>(m_interactive.size());
    Require(CreateWellKnownSid(WinInteractiveSid, nullptr, m_interactive.data(), &size));
    size = static_cast<DWORD>(m_system.size());
    Require(CreateWellKnownSid(WinLocalSystemSid, nullptr, m_system.data(), &size));

    const PSID callers[] = {User(), m_interactive.data(), m_system.data()};
    m_acl.resize(sizeof(ACL) + std::size(callers) * (sizeof(ACCESS_ALLOWED_ACE) + SECURITY_MAX_SID_SIZE));
    const PACL acl = reinterpret_cast<ACL*>(m_acl.data());
    Require(InitializeAcl(acl, static_cast<DWORD>(m_acl.size()), ACL_REVISION));
    for (const PSID caller : callers)
    {
        Require(AddAccessAllowedAce(acl, ACL_REVISION, LocalCalls, caller));
    }

    // Without an owner and a group COM does not take it.
    Require(InitializeSecurityDescriptor(&m_descriptor, SECURITY_DESCRIPTOR_REVISION));
    Require(SetSecurityDescriptorOwner(&m_descriptor, User(), FALSE));
    Require(SetSecurityDescriptorGroup(&m_descriptor, User(), FALSE));
    Require(SetSecurityDescriptorDacl(&m_descriptor, TRUE, acl, FALSE));
}

} // namespace Framework
