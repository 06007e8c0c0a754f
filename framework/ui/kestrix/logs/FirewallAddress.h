#pragma once

#include <cstdint>
#include <string_view>

// The number by which an address of the firewall log is sorted: an IPv4 address by its octets; a text that is no
// address as 255.255.255.255, a blank as 0.0.0.0; and ColonOrder for every text with a colon.
std::uint64_t AddressOrder(std::wstring_view address);

inline constexpr std::uint64_t ColonOrder = std::uint64_t{1} << 32; // above all others
