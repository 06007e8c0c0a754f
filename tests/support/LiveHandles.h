#pragma once

#include "platform/dialog/UniqueHandle.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstddef>

// How many handles of each kind have an owner in this process now.
struct LiveHandles
{
    inline static std::array<std::atomic<long>, static_cast<std::size_t>(HandleKind::Interface) + 1> s_nCounts{};

    // All counts at this moment, to be compared with those of another.
    static std::array<long, std::tuple_size_v<decltype(s_nCounts)>> All()
    {
        std::array<long, std::tuple_size_v<decltype(s_nCounts)>> counts{};
        std::ranges::copy(s_nCounts, counts.begin());
        return counts;
    }

    static std::atomic<long>& Of(HandleKind kind) noexcept { return s_nCounts[static_cast<std::size_t>(kind)]; }
};

inline void NoteHandle(HandleKind kind, int change) noexcept
{
    LiveHandles::Of(kind) += change;
}
