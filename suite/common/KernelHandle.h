#pragma once

#include <windows.h>

#include <memory>

namespace Suite
{

struct KernelHandleCloser
{
    void operator()(void* handle) const noexcept { CloseHandle(handle); }
};

// The one owner of a handle of the system's kernel; empty when there is none.
using KernelHandle = std::unique_ptr<void, KernelHandleCloser>;

// Takes over the handle of a file, for which the system says INVALID_HANDLE_VALUE when there is none.
inline KernelHandle OwnFile(HANDLE handle) noexcept
{
    return KernelHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

inline constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Opens a file, shared with everybody for everything. Empty, with the reason in GetLastError, when that failed.
inline KernelHandle OpenShared(const wchar_t* path, DWORD access, DWORD disposition) noexcept
{
    return OwnFile(CreateFileW(path, access, ShareAll, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

} // namespace Suite
