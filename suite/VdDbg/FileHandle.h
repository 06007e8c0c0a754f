#pragma once

#include <windows.h>

#include <memory>

namespace VdDbg
{

inline constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

struct FileCloser
{
    void operator()(void* handle) const noexcept { CloseHandle(handle); }
};

// The one owner of an open file; empty when there is none.
using FileHandle = std::unique_ptr<void, FileCloser>;

// Takes over what the system gave, which says INVALID_HANDLE_VALUE for none.
inline FileHandle Own(HANDLE handle) noexcept
{
    return FileHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

// Opens a file, shared with everybody for everything. Empty, with the reason in GetLastError, when that failed.
inline FileHandle OpenShared(const wchar_t* path, DWORD access, DWORD disposition) noexcept
{
    return Own(CreateFileW(path, access, ShareAll, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

} // namespace VdDbg
