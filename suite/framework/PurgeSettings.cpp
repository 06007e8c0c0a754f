#include "suite/framework/PurgeSettings.h"

#include <windows.h>

#include <system_error>

namespace Framework
{

namespace
{

constexpr wchar_t Key[] = L"Software\\Veldrane\\Zeptara\\17\\ServiceFramework\\EnforceLayer\\Common\\EventLog";
constexpr wchar_t DaysName[] = L"EventLogPurgeFre";
constexpr wchar_t FlagName[] = L"EventLogPurgeFlag";

// Whether the system has answered that there is no such number, and not failed to answer.
bool IsMissing(LSTATUS status)
{
    return status == ERROR_FILE_NOT_FOUND || status == ERROR_UNSUPPORTED_TYPE || status == ERROR_MORE_DATA ||
           status == ERROR_INVALID_DATA;
}

void Require(LSTATUS status, const char* failure)
{
    if (status != ERROR_SUCCESS)
    {
        throw std::system_error(static_cast<int>(status), std::system_category(), failure);
    }
}

void Read(const wchar_t* name, std::uint32_t& number)
{
    DWORD value = 0;
    DWORD size = sizeof value;
    const LSTATUS status = RegGetValueW(HKEY_LOCAL_MACHINE, Key, name, RRF_RT_REG_DWORD, nullptr, &value, &size);
    if (!IsMissing(status))
    {
        Require(status, "the purge settings cannot be read");
        number = size == sizeof value ? value : number;
    }
}

struct Change
{
    const wchar_t* name;
    std::uint32_t before;
    std::uint32_t after;
};

LSTATUS Store(const wchar_t* name, std::uint32_t number)
{
    const DWORD value = number;
    return RegSetKeyValueW(HKEY_LOCAL_MACHINE, Key, name, REG_DWORD, &value, sizeof value);
}

void RequireStored(LSTATUS status)
{
    Require(status, "the purge settings cannot be stored");
}

} // namespace

PurgeSettings ReadPurgeSettings()
{
    PurgeSettings settings;
    Read(DaysName, settings.days);
    Read(FlagName, settings.flag);
    return settings;
}

void WritePurgeSettings(const PurgeSettings& settings)
{
    const PurgeSettings before = ReadPurgeSettings();
    const Change days{DaysName, before.days, settings.days};
    const Change flag{FlagName, before.flag, settings.flag};
    // The purge is off before it could take more, and knows how much when it comes on.
    const bool isOff = settings.flag == 0;
    const Change& first = isOff ? flag : days;
    const Change& second = isOff ? days : flag;
    RequireStored(Store(first.name, first.after));
    const LSTATUS status = Store(second.name, second.after);
    if (status != ERROR_SUCCESS)
    {
        Store(first.name, first.before);
    }
    RequireStored(status);
}

} // namespace Framework
