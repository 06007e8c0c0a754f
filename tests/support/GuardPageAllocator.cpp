// Every block of a debug test ends at a page that cannot be touched, and a freed block's pages are gone:
// an access past the end or after the end of life stops the test at the very instruction.

#include <windows.h>

#include <cstdint>
#include <new>

namespace
{

constexpr std::size_t PageSize = 4096;
constexpr std::size_t LargestBlock = SIZE_MAX / 2; // keeps the sums below from wrapping

std::size_t PagesFor(std::size_t bytes)
{
    return (bytes + PageSize - 1) / PageSize;
}

void* AllocateGuarded(std::size_t bytes, std::size_t alignment)
{
    if (bytes > LargestBlock)
    {
        throw std::bad_alloc();
    }
    const std::size_t pages = PagesFor((bytes == 0 ? 1 : bytes) + alignment - 1);
    auto* const base =
        static_cast<std::uint8_t*>(VirtualAlloc(nullptr, (pages + 1) * PageSize, MEM_RESERVE, PAGE_NOACCESS));
    if (base == nullptr || VirtualAlloc(base, pages * PageSize, MEM_COMMIT, PAGE_READWRITE) == nullptr)
    {
        throw std::bad_alloc();
    }
    auto address = reinterpret_cast<std::uintptr_t>(base + pages * PageSize - bytes);
    address &= ~static_cast<std::uintptr_t>(alignment - 1);
    return reinterpret_cast<void*>(address);
}

void FreeGuarded(void* block) noexcept
{
    MEMORY_BASIC_INFORMATION info{};
    if (block != nullptr && VirtualQuery(block, &info, sizeof info) != 0)
    {
        const DWORD error = GetLastError();
        VirtualFree(info.AllocationBase, 0, MEM_RELEASE);
        SetLastError(error);
    }
}

} // namespace

void* operator new(std::size_t bytes)
{
    return AllocateGuarded(bytes, __STDCPP_DEFAULT_NEW_ALIGNMENT__);
}

void* operator new[](std::size_t bytes)
{
    return AllocateGuarded(bytes, __STDCPP_DEFAULT_NEW_ALIGNMENT__);
}

void* operator new(std::size_t bytes, std::align_val_t alignment)
{
    return AllocateGuarded(bytes, static_cast<std::size_t>(alignment));
}

void* operator new[](std::size_t bytes, std::align_val_t alignment)
{
    return AllocateGuarded(bytes, static_cast<std::size_t>(alignment));
}

void operator delete(void* block) noexcept
{
    FreeGuarded(block);
}

void operator delete[](void* block) noexcept
{
    FreeGuarded(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    FreeGuarded(block);
}

void operator delete[](void* block, std::size_t) noexcept
{
    FreeGuarded(block);
}

void operator delete(void* block, std::align_val_t) noexcept
{
    FreeGuarded(block);
}

void operator delete[](void* block, std::align_val_t) noexcept
{
    FreeGuarded(block);
}

void operator delete(void* block, std::size_t, std::align_val_t) noexcept
{
    FreeGuarded(block);
}

void operator delete[](void* block, std::size_t, std::align_val_t) noexcept
{
    FreeGuarded(block);
}
