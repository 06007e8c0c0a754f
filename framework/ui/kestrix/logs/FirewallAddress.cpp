#include <winsock2.h> // before windows.h, which would bring its older form

#include "framework/ui/kestrix/logs/FirewallAddress.h"

#include <optional>
#include <string>

namespace
{

constexpr int Octets = 4;

// The number of four decimal octets without leading zeros, which is how nearly all addresses are written; nothing for
// any other text.
std::optional<std::uint32_t> DottedNumber(std::wstring_view text)
{
    std::uint32_t number = 0;
    for (int i = 0; i < Octets; ++i)
    {
        std::uint32_t octet = 0;
        std::size_t digits = 0;
        for (; digits < text.size() && text[digits] >= L'0' && text[digits] <= L'9' && octet < 100; ++digits)
        {
            octet = octet * 10 + (text[digits] - L'0');
        }
        const bool isLast = i + 1 == Octets;
        const bool endsWell = isLast ? digits == text.size() : digits < text.size() && text[digits] == L'.';
        if (digits == 0 || (digits > 1 && text.front() == L'0') || octet > 0xFF || !endsWell)
        {
            return std::nullopt;
        }
        number = number << 8 | octet;
        text.remove_prefix(isLast ? digits : digits + 1);
    }
    return number;
}

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
    if (const std::optional<std::uint32_t> number = DottedNumber(address))
    {
        return *number;
    }
    return address.find(L':') != address.npos ? ColonOrder : ::ntohl(::inet_addr(Narrow(address).c_str()));
}
