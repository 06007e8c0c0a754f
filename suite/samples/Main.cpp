#include "suite/common/Failure.h"
#include "suite/samples/CommandLine.h"
#include "suite/samples/Month.h"
#include "suite/samples/MonthFeed.h"

#include <windows.h>

#include <io.h>

#include <cstdio>
#include <exception>

namespace
{

using namespace Samples;

Date Today()
{
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return std::chrono::year_month_day(std::chrono::year(now.wYear), std::chrono::month(now.wMonth),
                                       std::chrono::day(now.wDay));
}

// One line that is written over on a console; elsewhere only its last state stays.
void ShowProgress(const Progress& progress)
{
    const bool console = _isatty(_fileno(stderr)) != 0;
    if (console || progress.done)
    {
        std::fprintf(stderr, "%s%llu days, %llu records%s", console ? "\r" : "", progress.days, progress.records,
                     progress.done ? " are in the database\n" : "");
    }
}

void Run(const Options& options)
{
    if (options.help)
    {
        std::fputs(HelpText().c_str(), stdout);
    }
    else if (options.lines)
    {
        WriteLines(options.file, *options.kinds.front(), options.end, *options.lines, options.seed);
    }
    else
    {
        if (!options.folder.empty())
        {
            WriteMonth(options.folder, options.kinds, options.end, options.days, options.seed);
        }
        if (!options.database.empty())
        {
            FeedMonth(options.database, options.kinds, options.end, options.days, options.seed, ShowProgress);
        }
    }
}

int Report(const char* text, Suite::ExitCode code)
{
    std::fprintf(stderr, "SampleLogs: %s\n", text);
    return static_cast<int>(code);
}

} // namespace

int wmain(int argc, wchar_t** argv)
{
    SetConsoleOutputCP(CP_UTF8);
    try
    {
        const std::vector<std::wstring> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
        Run(ParseCommandLine(arguments, Today()));
        return static_cast<int>(Suite::ExitCode::Done);
    }
    catch (const Suite::Failure& failure)
    {
        return Report(failure.what(), failure.Code());
    }
    catch (const std::exception& error)
    {
        return Report(error.what(), Suite::ExitCode::WorkFailed);
    }
}
