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

void Read(const wchar_t* name, std::uint32_t& number)
{
    DWORD value = 0;
    DWORD size = sizeof value;
    if (RegGetValueW(HKEY_LOCAL_MACHINE, Key, name, RRF_RT_REG_DWORD, nullptr, &value, &size) == ERROR_SUCCESS)
    {
        number = value;
    }
}

void Write(const wchar_t* name, std::uint32_t number)
{
    const DWORD value = number;
    const LSTATUS status = RegSetKeyValueW(HKEY_LOCAL_MACHINE, Key, name, REG_DWORD, &value, sizeof value);
    if (status != ERROR_SUCCESS)
    {
        throw std::system_error(static_cast<int>(status), std::system_category(),
                                "the purge settings cannot be stored");
    }
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
    Write(DaysName, settings.days);
    Write(FlagName, settings.flag);
}

} // namespace Framework
