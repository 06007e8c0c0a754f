#include "suite/VdDbg/OldFiles.h"

#include <windows.h>

namespace VdDbg
{

namespace
{

bool Exists(const std::wstring& path)
{
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

// The name of a deleted file stays taken as long as somebody has it open; that of a renamed one is free at once.
void Discard(const LogName& name, unsigned number)
{
    const std::wstring discarded = name.Discarded();
    MoveFileW(name.Old(number).c_str(), discarded.c_str());
    DeleteFileW(discarded.c_str());
}

} // namespace

bool RetireCurrent(const LogName& name)
{
    // The first free number takes the file below it. After a failure half way nothing above the gap moves again.
    unsigned number = 1;
    while (number <= OldFilesKept && Exists(name.Old(number)))
    {
        ++number;
    }
    if (number > OldFilesKept)
    {
        Discard(name, --number);
    }
    // Nothing is moved over a name that is taken: a file that somebody holds in its place stops all after it.
    for (; number > 1; --number)
    {
        MoveFileW(name.Old(number - 1).c_str(), name.Old(number).c_str());
    }
    return MoveFileW(name.Current().c_str(), name.Old(1).c_str());
}

} // namespace VdDbg
