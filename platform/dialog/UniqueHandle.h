#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstddef>
#include <utility>

// Keeps the thread's last error as it was while the object lives.
class LastErrorScope
{
public:
    LastErrorScope() noexcept : m_dwError(GetLastError()) {}

    ~LastErrorScope() { SetLastError(m_dwError); }

    LastErrorScope(const LastErrorScope&) = delete;
    LastErrorScope& operator=(const LastErrorScope&) = delete;

private:
    const DWORD m_dwError;
};

enum class HandleKind : std::size_t
{
    Bitmap,
    Brush,
    Font,
    Pen,
    Region,
    Palette,
    MemoryDC,
    Icon,
    Cursor,
    ImageList,
    Menu,
    Memory,
    Window,
    Module,
    RegistryKey,
    Kernel,
    File,
    Find,
    Interface,
};

// The address for a function that hands a handle out: the handle arrives in its owner at the end of the full
// expression, as with std::out_ptr.
template <class Owner, class Handle>
class HandleOut
{
public:
    HandleOut(Owner& owner, Handle none) noexcept : m_owner(owner), m_handle(none) { owner.reset(); }

    ~HandleOut() { m_owner.reset(m_handle); }

    HandleOut(const HandleOut&) = delete;
    HandleOut& operator=(const HandleOut&) = delete;

    operator Handle*() noexcept { return &m_handle; }

private:
    Owner& m_owner;
    Handle m_handle;
};

// The one owner of a system handle: closes it when it goes, and leaves GetLastError alone while closing.
// Traits state the type Handle, its Kind, the value Invalid() that stands for "none", and Close(handle). The members
// that are not defined here stand in UniqueHandleMembers.h: a test program has them with a count of what is owned.
template <class Traits>
class UniqueHandle
{
public:
    using Handle = typename Traits::Handle;

    UniqueHandle() noexcept = default;

    explicit UniqueHandle(Handle handle) noexcept { reset(handle); }

    UniqueHandle(UniqueHandle&& other) noexcept : m_handle(std::exchange(other.m_handle, Traits::Invalid())) {}

    ~UniqueHandle() { reset(); }

    UniqueHandle& operator=(UniqueHandle&& other) noexcept
    {
        reset(other.release());
        return *this;
    }

    Handle get() const noexcept { return m_handle; }

    explicit operator bool() const noexcept { return m_handle != Traits::Invalid(); }

    // Closes what is held and takes over the handle. Giving the handle that is held changes nothing.
    void reset(Handle handle = Traits::Invalid()) noexcept;

    // Leaves the handle to the caller, who closes it from now on.
    [[nodiscard]] Handle release() noexcept;

    // RegOpenKeyExW(..., key.put())
    HandleOut<UniqueHandle, Handle> put() noexcept { return {*this, Traits::Invalid()}; }

private:
    Handle m_handle = Traits::Invalid();
};

namespace HandleKinds
{

template <class H, HandleKind kind>
struct NullIsNone
{
    using Handle = H;
    static constexpr HandleKind Kind = kind;

    static Handle Invalid() noexcept { return nullptr; }
};

template <HandleKind kind>
struct InvalidValueIsNone
{
    using Handle = HANDLE;
    static constexpr HandleKind Kind = kind;

    static Handle Invalid() noexcept { return INVALID_HANDLE_VALUE; }
};

// clang-format off
template <class H, HandleKind kind>
struct Gdi         : NullIsNone<H, kind>                            { static void Close(H h) noexcept { DeleteObject(h); } };
struct MemoryDC    : NullIsNone<HDC, HandleKind::MemoryDC>          { static void Close(HDC h) noexcept { DeleteDC(h); } };
struct Icon        : NullIsNone<HICON, HandleKind::Icon>            { static void Close(HICON h) noexcept { DestroyIcon(h); } };
struct Cursor      : NullIsNone<HCURSOR, HandleKind::Cursor>        { static void Close(HCURSOR h) noexcept { DestroyCursor(h); } };
struct ImageList   : NullIsNone<HIMAGELIST, HandleKind::ImageList>  { static void Close(HIMAGELIST h) noexcept { ImageList_Destroy(h); } };
struct Menu        : NullIsNone<HMENU, HandleKind::Menu>            { static void Close(HMENU h) noexcept { DestroyMenu(h); } };
struct Memory      : NullIsNone<HGLOBAL, HandleKind::Memory>        { static void Close(HGLOBAL h) noexcept { GlobalFree(h); } };
struct Window      : NullIsNone<HWND, HandleKind::Window>           { static void Close(HWND h) noexcept { DestroyWindow(h); } };
struct Module      : NullIsNone<HMODULE, HandleKind::Module>        { static void Close(HMODULE h) noexcept { FreeLibrary(h); } };
struct RegistryKey : NullIsNone<HKEY, HandleKind::RegistryKey>      { static void Close(HKEY h) noexcept { RegCloseKey(h); } };
struct Kernel      : NullIsNone<HANDLE, HandleKind::Kernel>         { static void Close(HANDLE h) noexcept { CloseHandle(h); } };
struct File        : InvalidValueIsNone<HandleKind::File>           { static void Close(HANDLE h) noexcept { CloseHandle(h); } };
struct Find        : InvalidValueIsNone<HandleKind::Find>           { static void Close(HANDLE h) noexcept { FindClose(h); } };

// clang-format on

} // namespace HandleKinds

using UniqueBitmap = UniqueHandle<HandleKinds::Gdi<HBITMAP, HandleKind::Bitmap>>;
using UniqueBrush = UniqueHandle<HandleKinds::Gdi<HBRUSH, HandleKind::Brush>>;
using UniqueFont = UniqueHandle<HandleKinds::Gdi<HFONT, HandleKind::Font>>;
using UniquePen = UniqueHandle<HandleKinds::Gdi<HPEN, HandleKind::Pen>>;
using UniqueRegion = UniqueHandle<HandleKinds::Gdi<HRGN, HandleKind::Region>>;
using UniquePalette = UniqueHandle<HandleKinds::Gdi<HPALETTE, HandleKind::Palette>>;
using UniqueMemoryDC = UniqueHandle<HandleKinds::MemoryDC>;
using UniqueIcon = UniqueHandle<HandleKinds::Icon>;
using UniqueCursor = UniqueHandle<HandleKinds::Cursor>;
using UniqueImageList = UniqueHandle<HandleKinds::ImageList>;
using UniqueMenu = UniqueHandle<HandleKinds::Menu>;
using UniqueMemory = UniqueHandle<HandleKinds::Memory>; // of GlobalAlloc
using UniqueWindow = UniqueHandle<HandleKinds::Window>;
using UniqueModule = UniqueHandle<HandleKinds::Module>;
using UniqueRegistryKey = UniqueHandle<HandleKinds::RegistryKey>;
using UniqueKernelHandle = UniqueHandle<HandleKinds::Kernel>; // events, mutexes, semaphores, mappings: null is none
using UniqueFile = UniqueHandle<HandleKinds::File>;           // CreateFileW: INVALID_HANDLE_VALUE is none
using UniqueFind = UniqueHandle<HandleKinds::Find>;           // FindFirstFileW: INVALID_HANDLE_VALUE is none
