#include "suite/VdDbg/LineTime.h"

namespace VdDbg
{

unsigned LocalDayOf(const FILETIME& stamp)
{
    SYSTEMTIME universal{};
    SYSTEMTIME local{};
    FileTimeToSystemTime(&stamp, &universal);
    SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local);
    return DayOf(local);
}

std::optional<FILETIME> StampOf(const SYSTEMTIME& local)
{
    SYSTEMTIME universal{};
    FILETIME stamp{};
    if (!TzSpecificLocalTimeToSystemTime(nullptr, &local, &universal) || !SystemTimeToFileTime(&universal, &stamp))
    {
        return std::nullopt;
    }
    return stamp;
}

} // namespace VdDbg
