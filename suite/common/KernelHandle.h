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

} // namespace Suite
