#include "tests/fuzz/GuardedBlock.h"

#include <windows.h>

#include <new>
#include <stdexcept>

namespace Fuzz
{

namespace
{

constexpr std::size_t PageSize = 4096;
constexpr std::size_t Room = 512 * PageSize;

} // namespace

GuardedBlock::GuardedBlock()
    : m_pages(static_cast<char*>(VirtualAlloc(nullptr, Room + PageSize, MEM_RESERVE, PAGE_NOACCESS)))
{
    if (m_pages == nullptr || VirtualAlloc(m_pages, Room, MEM_COMMIT, PAGE_READWRITE) == nullptr)
    {
        throw std::bad_alloc();
    }
}

GuardedBlock::~GuardedBlock()
{
    VirtualFree(m_pages, 0, MEM_RELEASE);
}

std::string_view GuardedBlock::Put(std::string_view bytes)
{
    if (bytes.size() > Room)
    {
        throw std::length_error("the input is too long");
    }
    char* const begin = m_pages + Room - bytes.size();
    bytes.copy(begin, bytes.size());
    return {begin, bytes.size()};
}

} // namespace Fuzz
