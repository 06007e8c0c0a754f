#include <winsock2.h> // before windows.h, which would bring its older form

#include "framework/ui/kestrix/logs/FirewallAddress.h"

#include <string>

namespace
{

std::string Narrow(std::wstring_view text)
{
    const int length = static_cast<int>(text.size());
    const int size = ::WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(CP_ACP, 0, text.data(), length, narrow.data(), size, nullptr, nullptr);
    return narrow;
}

} // namespace

std::uint64_t AddressOrder(std::wstring_view address)
{
    return address.find(L':') != address.npos ? ColonOrder : ::ntohl(::inet_addr(Narrow(address).c_str()));
}
