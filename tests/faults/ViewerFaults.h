#pragma once

#include "platform/dialog/Exceptions.h"
#include "suite/database/EventDatabase.h"
#include "tests/support/TemporaryFolder.h"

#include <functional>
#include <string>
#include <vector>

inline constexpr wchar_t SuiteKey[] = L"Software\\Veldrane\\Zeptara";

inline std::wstring VirusLine(const wchar_t* time, const wchar_t* threat)
{
    return std::wstring(L"x|") + time + L"|1048576|x|0|0|" + threat + L"|C:\\a|4|1|0|0|x";
}

inline std::wstring FirewallLine(const wchar_t* time, const wchar_t* program)
{
    return std::wstring(time) + L"|4|0|2||6|2|192.0.2.10|49152|192.0.2.20|443|||" + program + L"|rule|message";
}

// Does what a handler of a window would do, which lets no exception out.
inline void Handle(const std::function<void()>& work)
{
    try
    {
        work();
    }
    catch (...)
    {
        ReportHandlerException(std::current_exception());
    }
}

// A database with two days of viruses and one of the firewall, as the folder of the suite has it.
inline void FillDatabase(const TemporaryFolder& folder)
{
    using Lines = std::vector<std::wstring>;
    auto database = EventLog::EventDatabase::Create(folder.File(EventLog::DatabaseFileName));
    database.Append(2, 20261119, Lines{VirusLine(L"0800", L"older")});
    database.Append(2, 20261120,
                    Lines{VirusLine(L"0900", L"beta"), VirusLine(L"1030", L"alpha"), VirusLine(L"0930", L"gamma")});
    database.Append(6, 20261120, Lines{FirewallLine(L"090000", L"C:\\b.exe"), FirewallLine(L"100000", L"C:\\a.exe")});
}
