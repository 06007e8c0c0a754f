#include "suite/common/Failure.h"
#include "suite/common/Folders.h"
#include "suite/database/EventDatabase.h"
#include "suite/import/CommandLine.h"
#include "suite/import/FileImport.h"

#include <windows.h>

#include <io.h>

#include <cstdio>
#include <exception>

namespace
{

using namespace Import;
using Suite::ExitCode;

// One line that is written over on a console; elsewhere only its last state stays.
class ProgressLine
{
public:
    ProgressLine() = default;

    ~ProgressLine() { Break(); }

    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void Show(const Progress& progress)
    {
        if (!m_bConsole && !progress.IsAtItsEnd())
        {
            return;
        }
        std::fprintf(stderr, "%s%zu of %zu files, %llu records%s", m_bConsole ? "\r" : "", progress.done,
                     progress.files, progress.records, progress.IsAtItsEnd() ? " are in the database\n" : "");
        m_bOpen = !progress.IsAtItsEnd();
    }

    // Leaves what was shown and begins a new line for another text.
    void Break()
    {
        std::fputs(m_bOpen ? "\n" : "", stderr);
        m_bOpen = false;
    }

private:
    const bool m_bConsole = _isatty(_fileno(stderr)) != 0;
    bool m_bOpen = false;
};

int Report(const std::string& text, ExitCode code)
{
    std::fprintf(stderr, "ImportLogs: %s\n", text.c_str());
    return static_cast<int>(code);
}

std::filesystem::path DatabaseOf(const Options& options)
{
    if (!options.database.empty())
    {
        return options.database;
    }
    const std::optional<std::filesystem::path> folder = Suite::DataFolder();
    if (!folder)
    {
        throw Suite::Failure(ExitCode::BadCommandLine, "nothing is installed on this machine whose database could be "
                                                       "meant. Name a file with --database.");
    }
    return *folder / EventLog::DatabaseFileName;
}

ExitCode Run(const Options& options)
{
    if (options.help)
    {
        std::fputs(HelpText().c_str(), stdout);
        return ExitCode::Done;
    }
    ProgressLine line;
    const Progress end = ImportFiles(DatabaseOf(options), options.paths,
                                     {[&](const Progress& progress) { line.Show(progress); },
                                      [&](const std::string& fault)
                                      {
                                          line.Break();
                                          Report(fault, ExitCode::PartlyDone);
                                      }});
    return end.left == 0 ? ExitCode::Done : ExitCode::PartlyDone;
}

} // namespace

int wmain(int argc, wchar_t** argv)
{
    SetConsoleOutputCP(CP_UTF8);
    try
    {
        const std::vector<std::wstring> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
        return static_cast<int>(Run(ParseCommandLine(arguments)));
    }
    catch (const Suite::Failure& failure)
    {
        return Report(failure.what(), failure.Code());
    }
    catch (const std::exception& error)
    {
        return Report(error.what(), ExitCode::WorkFailed);
    }
}
