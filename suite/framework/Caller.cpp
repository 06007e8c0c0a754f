#include "suite/framework/Caller.h"

#include "suite/common/KernelHandle.h"
#include "suite/framework/Utf8.h"

#include <rpc.h>

#include <rpcdcep.h>

#include <array>

namespace Framework
{

namespace
{

constexpr DWORD LongestName = 512; // of a user or of a machine or domain, in characters

std::vector<BYTE> UserOfProcess(DWORD id)
{
    const Suite::KernelHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id));
    HANDLE token = nullptr;
    if (!process || !OpenProcessToken(process.get(), TOKEN_QUERY, &token))
    {
        return {};
    }
    return UserOf(Suite::KernelHandle(token).get());
}

// DOMAIN\USER, or nothing.
std::wstring AccountName(std::vector<BYTE> user)
{
    std::array<wchar_t, LongestName> name{};
    std::array<wchar_t, LongestName> domain{};
    DWORD nameSize = LongestName;
    DWORD domainSize = LongestName;
    SID_NAME_USE use{};
    if (!LookupAccountSidW(nullptr, user.data(), name.data(), &nameSize, domain.data(), &domainSize, &use))
    {
        return {};
    }
    return std::wstring(domain.data()) + L"\\" + name.data();
}

} // namespace

DWORD CallingProcess()
{
    unsigned long process = 0;
    return I_RpcBindingInqLocalClientPID(nullptr, &process) == RPC_S_OK ? process : GetCurrentProcessId();
}

std::vector<BYTE> UserOf(HANDLE token)
{
    DWORD size = 0;
    GetTokenInformation(token, TokenUser, nullptr, 0, &size);
    std::vector<BYTE> buffer(size);
    if (!GetTokenInformation(token, TokenUser, buffer.data(), size, &size))
    {
        return {};
    }
    const BYTE* const sid = static_cast<const BYTE*>(reinterpret_cast<const TOKEN_USER*>(buffer.data())->User.Sid);
    return {sid, sid + GetLengthSid(const_cast<BYTE*>(sid))};
}

Caller::Caller() : m_dwProcess(CallingProcess()), m_user(UserOfProcess(m_dwProcess)) {}

std::string Caller::Name() const
{
    const std::wstring name = m_user.empty() ? std::wstring() : AccountName(m_user);
    return (name.empty() ? "an unknown user" : Narrow(name)) + " (process " + std::to_string(m_dwProcess) + ")";
}

} // namespace Framework
