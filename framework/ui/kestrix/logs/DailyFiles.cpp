#include "framework/ui/kestrix/logs/DailyFiles.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_Number.h"
#include "platform/dialog/UniqueHandle.h"

namespace
{

constexpr std::size_t PathRoom = 260; // a path must fit with its terminator
constexpr int Noon = 12;

} // namespace

COleDateTime DateOfName(std::wstring_view name)
{
    return {VdCommon::WideToInteger(name.substr(0, 4)),
            VdCommon::WideToInteger(name.substr(4, 2)),
            VdCommon::WideToInteger(name.substr(6, 2)),
            Noon,
            0,
            0};
}

void ForEachEntry(const std::wstring& path, const std::function<bool(const WIN32_FIND_DATAW&)>& visit)
{
    WIN32_FIND_DATAW entry{};
    const UniqueFind search(FindFirstFileW(path.c_str(), &entry));
    if (!search)
    {
        return;
    }
    do
    {
        const std::wstring_view name = entry.cFileName;
        if (name != L"." && name != L".." && !visit(entry))
        {
            return;
        }
    } while (FindNextFileW(search.get(), &entry));
}

void ForEachDailyFile(const std::wstring& path, const std::function<void(const DailyFile&)>& visit)
{
    ForEachEntry(path,
                 [&](const WIN32_FIND_DATAW& entry)
                 {
                     const std::wstring_view name = entry.cFileName;
                     VD_TRACE(Flow, L"log filename[%s]", name);
                     if (name.size() == DailyFileNameLength && (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
                     {
                         const COleDateTime date = DateOfName(name);
                         if (date.GetStatus() == COleDateTime::valid)
                         {
                             visit({date, entry.nFileSizeLow});
                         }
                     }
                     return true;
                 });
}

bool IsUsablePath(const std::wstring& path)
{
    if (!path.empty() && path.size() < PathRoom)
    {
        return true;
    }
    const DWORD status = path.empty() ? ERROR_SUCCESS : ERROR_INSUFFICIENT_BUFFER;
    VD_TRACE(Error, L"VdCommon::String::CopyTString() failed: 0x%08X", status);
    return false;
}

bool HasForeignLogFile(const std::wstring& path)
{
    bool foreign = false;
    ForEachEntry(path,
                 [&](const WIN32_FIND_DATAW& entry)
                 {
                     const std::wstring_view name = entry.cFileName;
                     foreign =
                         name.size() != DailyFileNameLength || DateOfName(name).GetStatus() != COleDateTime::valid;
                     return !foreign;
                 });
    return foreign;
}
