// Reads a daily file of the virus log and exports it.
//
// usage: ExportDay DAILY_FILE EXPORT_FILE
//
// Prints the writer's result and its error code, and ends with 0 whatever they are; with 2 when the daily file cannot
// be read.

#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "tests/support/LanguageFile.h"

#include <cstdio>
#include <exception>

int wmain(int argc, wchar_t** argv)
{
    try
    {
        const LanguageFile language;
        CZPTLogVir log;
        log.m_bUseDBMgr = false;
        if (argc != 3 || !log.ReadLogW(argv[1]))
        {
            std::fputs("ExportDay: the daily file cannot be read\n", stderr);
            return 2;
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
