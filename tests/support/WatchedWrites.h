#pragma once

#include "tests/support/ImportPatch.h"

#include <functional>
#include <mutex>
#include <utility>

extern "C" decltype(&::WriteFile) __imp_WriteFile;

// Asks a function before each write of this program to a file, by any thread, while the object lives: a write that it
// does not allow fails as on a full disk. One at a time. The function may read and copy files.
class WatchedWrites
{
public:
    explicit WatchedWrites(std::function<bool()> allows) : m_patch(__imp_WriteFile, Prepare(std::move(allows))) {}

    ~WatchedWrites()
    {
        const std::lock_guard guard(s_mutex);
        s_allows = nullptr;
    }

    WatchedWrites(const WatchedWrites&) = delete;
    WatchedWrites& operator=(const WatchedWrites&) = delete;

private:
    using Function = decltype(&::WriteFile);

    // Before any thread can come to it.
    static Function Prepare(std::function<bool()> allows)
    {
        const std::lock_guard guard(s_mutex);
        s_allows = std::move(allows);
        s_original = __imp_WriteFile;
        return &Write;
    }

    static BOOL WINAPI Write(HANDLE file, LPCVOID bytes, DWORD size, DWORD* written, OVERLAPPED* place)
    {
        const std::lock_guard guard(s_mutex);
        if (s_allows && !s_allows())
        {
            *written = 0;
            SetLastError(ERROR_DISK_FULL);
            return FALSE;
        }
        return s_original(file, bytes, size, written, place);
    }

    static inline std::recursive_mutex s_mutex;
    static inline std::function<bool()> s_allows;
    static inline Function s_original = nullptr;

    const ImportPatch<Function> m_patch;
};
