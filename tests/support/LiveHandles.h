#pragma once

#include "platform/dialog/UniqueHandle.h"

#include <array>
#include <atomic>
#include <cstddef>

// How many handles of each kind have an owner in this process now.
struct LiveHandles
{
    inline static std::array<std::atomic<long>, static_cast<std::size_t>(HandleKind::Interface) + 1> s_nCounts{};

    static std::atomic<long>& Of(HandleKind kind) noexcept { return s_nCounts[static_cast<std::size_t>(kind)]; }
};

inline void NoteHandle(HandleKind kind, int change) noexcept
{
    LiveHandles::Of(kind) += change;
}
