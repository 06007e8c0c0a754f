// Reads a daily file of the virus log and exports it.
//
// usage: ExportDay DAILY_FILE EXPORT_FILE [killed]
//
// Prints the writer's result and its error code, and ends with 0 whatever they are; with 2 when the daily file cannot
// be read. With "killed" the process ends without a word as soon as a part of the export is written.

#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/WriteDouble.h"

#include <windows.h>

#include <cstdio>
#include <exception>
#include <optional>

namespace
{

// Ends the process with the first write to a file, in the way of a task manager.
BOOL KillByWrite(HANDLE file, const void* bytes, DWORD size, DWORD* written)
{
    WriteDouble::PassOn(file, bytes, size, written);
    TerminateProcess(GetCurrentProcess(), 1);
    return FALSE;
}

} // namespace

int wmain(int argc, wchar_t** argv)
{
    try
    {
        const LanguageFile language;
        CZPTLogVir log;
        log.m_bUseDBMgr = false;
        if (argc < 3 || !log.ReadLogW(argv[1]))
        {
            std::fputs("ExportDay: the daily file cannot be read\n", stderr);
            return 2;
        }
        std::optional<WriteDouble> killed;
        if (argc > 3)
        {
            killed.emplace(&KillByWrite);
        }
        std::uint32_t error = 0;
        const bool done = log.ExportLog(argv[2], LogTypeVirus, L"31/12/2008", L"192.0.2.1", &error);
        std::printf("%d %u\n", done ? 1 : 0, error);
        return 0;
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "ExportDay: %s\n", error.what());
        return 2;
    }
}
