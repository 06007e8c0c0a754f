#pragma once

#include <windows.h>

#include <cstddef>
#include <new>
#include <stdexcept>
#include <string_view>

namespace Fuzz
{

// Memory for inputs that ends at a page that cannot be touched, in every build: a read past the end of an input stops
// the program at the very instruction.
class GuardedBlock
{
public:
    // Throws std::bad_alloc.
    GuardedBlock()
    {
        if (m_pages == nullptr || VirtualAlloc(m_pages, Room, MEM_COMMIT, PAGE_READWRITE) == nullptr)
        {
            throw std::bad_alloc();
        }
    }

    ~GuardedBlock() { VirtualFree(m_pages, 0, MEM_RELEASE); }

    GuardedBlock(const GuardedBlock&) = delete;
    GuardedBlock& operator=(const GuardedBlock&) = delete;

    // A copy of the bytes that ends where the page begins, valid until the next call. Throws std::length_error for more
    // than 8 MB.
    std::string_view Put(std::string_view bytes)
    {
        if (bytes.size() > Room)
        {
            throw std::length_error("the input is too long");
        }
        char* const begin = m_pages + Room - bytes.size();
        bytes.copy(begin, bytes.size());
        return {begin, bytes.size()};
    }

private:
    static constexpr std::size_t PageSize = 4096;
    static constexpr std::size_t Room = 2048 * PageSize;

    char* const m_pages = static_cast<char*>(VirtualAlloc(nullptr, Room + PageSize, MEM_RESERVE, PAGE_NOACCESS));
};

} // namespace Fuzz
