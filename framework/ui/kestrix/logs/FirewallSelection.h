#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// The event that the detail pane shows, as far as a firewall rule depends on it.
struct FirewallSelection
{
    static constexpr std::size_t LongestPath = 259;

    std::wstring szAppPath; // at most LongestPath characters; empty when the event names no program
    std::uint32_t nDirection = 0;
    std::uint32_t nProtocol = 0; // its number; 0 when the record shows the bare number
};
