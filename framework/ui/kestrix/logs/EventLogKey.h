#pragma once

// Where the service framework keeps its settings of the event logs, below HKEY_LOCAL_MACHINE.
inline constexpr wchar_t EventLogKey[] =
    L"Software\\Veldrane\\Zeptara\\17\\ServiceFramework\\EnforceLayer\\Common\\EventLog";
