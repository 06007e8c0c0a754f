#pragma once

#include <cstdint>
#include <string_view>

// The number by which an address of the firewall log is sorted: an IPv4 address by its octets; a text that is no
// address as 255.255.255.255, a blank as 0.0.0.0; and one number above them all for every text with a colon.
std::uint64_t AddressOrder(std::wstring_view address);

inline constexpr std::uint64_t ColonOrder = std::uint64_t{1} << 32;

// An address with its number, which is kept since to find it takes longer than to compare it.
struct FirewallAddress
{
    std::wstring_view text;
    std::uint64_t order;
};

// Compares by the numbers, and texts with colons by code units.
int Compare(const FirewallAddress& first, const FirewallAddress& second);
