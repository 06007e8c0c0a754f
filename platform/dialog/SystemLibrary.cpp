#include "platform/dialog/SystemLibrary.h"

#include <delayimp.h>

#include <cwchar>
#include <iterator>

namespace
{

// What the helper of the linker raises when a library is not found.
constexpr DWORD LibraryNotFound = VcppException(ERROR_SEVERITY_ERROR, ERROR_MOD_NOT_FOUND);

HMODULE LoadDelayed(DelayLoadInfo& info)
{
    wchar_t fileName[MAX_PATH] = {};
    ::MultiByteToWideChar(CP_ACP, 0, info.szDll, -1, fileName, MAX_PATH);
    const HMODULE library = LoadSystemLibrary(fileName);
    if (library == nullptr)
    {
        // Back in the helper the search would begin that is not wanted.
        info.dwLastError = ::GetLastError();
        DelayLoadInfo* const argument = &info;
        ::RaiseException(LibraryNotFound, 0, 1, reinterpret_cast<const ULONG_PTR*>(&argument));
    }
    return library;
}

FARPROC WINAPI OnDelayedLoad(unsigned notification, DelayLoadInfo* info)
{
    return notification == dliNotePreLoadLibrary ? reinterpret_cast<FARPROC>(LoadDelayed(*info)) : nullptr;
}

} // namespace

// By this name the helper of the linker asks before it loads a library itself.
PfnDliHook __pfnDliNotifyHook2 = &OnDelayedLoad;

HMODULE WINAPI LoadSystemLibrary(const wchar_t* fileName) noexcept
{
    wchar_t path[MAX_PATH] = {};
    const std::size_t folder = ::GetSystemDirectoryW(path, MAX_PATH);
    const std::size_t name = std::wcslen(fileName);
    if (folder == 0 || folder + 1 + name >= std::size(path))
    {
        ::SetLastError(ERROR_FILENAME_EXCED_RANGE);
        return nullptr;
    }
    path[folder] = L'\\';
    std::wmemcpy(path + folder + 1, fileName, name);
    // A flag for the system's folder alone exists, but not on every system that the program runs on. This one looks for
    // what the library needs in the library's folder first.
    return ::LoadLibraryExW(path, nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}
