#include "suite/import/CommandLine.h"

#include "suite/common/Failure.h"
#include "suite/database/LogKinds.h"

namespace Import
{

namespace
{

[[noreturn]] void Refuse(const std::string& text)
{
    throw Suite::Failure(Suite::ExitCode::BadCommandLine, text + " ImportLogs --help tells how it is used.");
}

// What stands after --database.
std::filesystem::path DatabaseAfter(std::span<const std::wstring> rest, const Options& options)
{
    if (rest.empty() || rest.front().empty())
    {
        Refuse("--database needs the name of a database file after it.");
    }
    if (!options.database.empty())
    {
        Refuse("--database can be given once.");
    }
    return rest.front();
}

std::filesystem::path PathOf(const std::wstring& argument)
{
    if (argument.starts_with(L"--"))
    {
        Refuse("there is no option \"" + Suite::Utf8(argument) + "\".");
    }
    if (argument.empty())
    {
        Refuse("a name of a file or folder is empty.");
    }
    return argument;
}

std::string KindLines()
{
    std::string lines;
    for (const EventLog::LogKind& kind : EventLog::AllLogKinds())
    {
        lines += "  " + Suite::Utf8(kind.extension) + "  " + std::string(kind.title) + "\n";
    }
    return lines;
}

} // namespace

Options ParseCommandLine(std::span<const std::wstring> arguments)
{
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i)
    {
        const std::wstring& argument = arguments[i];
        if (argument == L"--help" || argument == L"/?")
        {
            options.help = true;
            return options;
        }
        if (argument == L"--database")
        {
            options.database = DatabaseAfter(arguments.subspan(++i), options);
        }
        else
        {
            options.paths.push_back(PathOf(argument));
        }
    }
    if (options.paths.empty())
    {
        Refuse("say which daily files or folders to import.");
    }
    return options;
}

std::string HelpText()
{
    return "ImportLogs puts the records of daily files into the event-log database, where the log viewer shows them.\n"
           "\n"
           "usage: ImportLogs [--database DB] PATH...\n"
           "       ImportLogs --help\n"
           "\n"
           "  PATH            a daily file, YYYYMMDD.EXT, or a folder, of which all daily files are taken\n"
           "  --database DB   this database file, which is made when it is missing; that of the installation without "
           "it\n"
           "\n"
           "What the database has of a day of a log is replaced by the file of that day. A file that cannot be taken "
           "is\n"
           "left out, with its reason, and all others are taken. Daily files are UTF-16 little endian; their letters:\n"
           "\n" +
           KindLines() +
           "\n"
           "exit status: 0 all files are in the database, 1 the database cannot be written, 2 wrong command line,\n"
           "3 some files are left out\n";
}

} // namespace Import
