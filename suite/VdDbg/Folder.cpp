#include "suite/VdDbg/Folder.h"

#include <windows.h>

namespace VdDbg
{

namespace
{

// Somebody else may make the same folder at the same time.
bool IsThere(const std::wstring& folder)
{
    return CreateDirectoryW(folder.c_str(), nullptr) || GetLastError() == ERROR_ALREADY_EXISTS;
}

} // namespace

bool MakeFolder(const std::wstring& folder)
{
    if (IsThere(folder))
    {
        return true;
    }
    const std::size_t parent = folder.find_last_of(L"\\/");
    return GetLastError() == ERROR_PATH_NOT_FOUND && parent != std::wstring::npos &&
           MakeFolder(folder.substr(0, parent)) && IsThere(folder);
}

} // namespace VdDbg
