#pragma once

#include "tests/support/ImportPatch.h"

#include <windows.h>

#include <cstddef>
#include <limits>

extern "C" void* (*__imp_malloc)(std::size_t);
extern "C" void (*__imp_free)(void*);
extern "C" decltype(&::VirtualAlloc) __imp_VirtualAlloc;
extern "C" decltype(&::VirtualFree) __imp_VirtualFree;

// Counts the blocks that the program takes from the heap and gives back while the object lives, exceptions included,
// and lets larger ones than a limit fail. One at a time, on one thread. Sees the plain heap and the guarded one of
// debug builds, which takes its blocks from VirtualAlloc.
class AllocationWatch
{
public:
    AllocationWatch() { s_pWatch = this; }

    AllocationWatch(const AllocationWatch&) = delete;
    AllocationWatch& operator=(const AllocationWatch&) = delete;

    // Blocks taken and not given back since the start.
    long BlocksOut() const { return m_nBlocks; }

    // From now on a block of more bytes fails.
    void FailAbove(std::size_t bytes) { m_nLimit = bytes; }

    // From now on this block, counted from 1, fails, and no other.
    void FailOnly(int number) { m_nUntilFailure = number; }

private:
    bool Fails(std::size_t size) { return size > m_nLimit || --m_nUntilFailure == 0; }

    static void* Malloc(std::size_t size)
    {
        void* const block = s_pWatch->Fails(size) ? nullptr : s_pWatch->m_malloc.Original()(size);
        s_pWatch->m_nBlocks += block != nullptr;
        return block;
    }

    static void Free(void* block)
    {
        s_pWatch->m_nBlocks -= block != nullptr;
        s_pWatch->m_free.Original()(block);
    }

    static void* WINAPI Reserve(void* address, SIZE_T size, DWORD type, DWORD protection)
    {
        const bool reserves = (type & MEM_RESERVE) != 0; // else the block is there already
        void* const block = reserves && s_pWatch->Fails(size)
                                ? nullptr
                                : s_pWatch->m_reserve.Original()(address, size, type, protection);
        s_pWatch->m_nBlocks += block != nullptr && reserves;
        return block;
    }

    static BOOL WINAPI Release(void* address, SIZE_T size, DWORD type)
    {
        s_pWatch->m_nBlocks -= (type & MEM_RELEASE) != 0;
        return s_pWatch->m_release.Original()(address, size, type);
    }

    inline static AllocationWatch* s_pWatch = nullptr;
    long m_nBlocks = 0;
    std::size_t m_nLimit = std::numeric_limits<std::size_t>::max();
    int m_nUntilFailure = 0; // from below 1 on it is never reached
    const ImportPatch<void* (*)(std::size_t)> m_malloc{__imp_malloc, &Malloc};
    const ImportPatch<void (*)(void*)> m_free{__imp_free, &Free};
    const ImportPatch<decltype(&::VirtualAlloc)> m_reserve{__imp_VirtualAlloc, &Reserve};
    const ImportPatch<decltype(&::VirtualFree)> m_release{__imp_VirtualFree, &Release};
};
