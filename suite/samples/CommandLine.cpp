#include "suite/samples/CommandLine.h"

#include "suite/common/Failure.h"

#include <string_view>

namespace Samples
{

namespace
{

// Ten years of daily files are enough for any trial, and keep a slip of the finger from filling the disk.
constexpr std::uint64_t MostDays = 3660;
constexpr std::uint64_t MostLines = 100'000'000;

[[noreturn]] void Refuse(const std::string& text)
{
    throw Suite::Failure(Suite::ExitCode::BadCommandLine, text + " SampleLogs --help lists the options.");
}

std::string KindNames()
{
    std::string names;
    for (const Kind& kind : AllKinds())
    {
        names += names.empty() ? "" : " ";
        names.append(kind.extension.begin(), kind.extension.end());
    }
    return names;
}

std::uint64_t ParseNumber(const std::wstring& option, const std::wstring& text, std::uint64_t least, std::uint64_t most)
{
    std::uint64_t number = 0;
    bool good = !text.empty();
    for (const wchar_t c : text)
    {
        const std::uint64_t digit = static_cast<std::uint64_t>(c) - L'0';
        good = good && digit <= 9 && number <= (most - digit) / 10;
        number = number * 10 + digit;
    }
    if (!good || number < least)
    {
        Refuse(Suite::Utf8(option) + " takes a whole number from " + std::to_string(least) + " to " +
               std::to_string(most) + ", not \"" + Suite::Utf8(text) + "\".");
    }
    return number;
}

Date ParseDate(const std::wstring& option, const std::wstring& text)
{
    if (text.size() == 8 && text.find_first_not_of(L"0123456789") == std::wstring::npos)
    {
        const std::chrono::year_month_day date(std::chrono::year(std::stoi(text.substr(0, 4))),
                                               std::chrono::month(std::stoi(text.substr(4, 2))),
                                               std::chrono::day(std::stoi(text.substr(6))));
        // The longest stretch of days back from here still lies after 1900, where dates begin for most calendars.
        if (date.ok() && static_cast<int>(date.year()) >= 1911)
        {
            return date;
        }
    }
    Refuse(Suite::Utf8(option) + " takes a date as YYYYMMDD from 19110101 on, not \"" + Suite::Utf8(text) + "\".");
}

const Kind* ParseKind(const std::wstring& option, const std::wstring& text)
{
    const Kind* kind = FindKind(text);
    if (kind == nullptr)
    {
        Refuse(Suite::Utf8(option) + " takes one of " + KindNames() + ", not \"" + Suite::Utf8(text) + "\".");
    }
    return kind;
}

std::filesystem::path ParsePath(const std::wstring& option, const std::wstring& text)
{
    if (text.empty())
    {
        Refuse(Suite::Utf8(option) + " takes a path, not an empty text.");
    }
    return text;
}

using Setter = void (*)(Options& options, const std::wstring& option, const std::wstring& value);

struct OptionRow
{
    std::wstring_view name;
    Setter set;
};

constexpr OptionRow OptionTable[] = {
    {L"--folder", [](Options& o, const std::wstring& n, const std::wstring& v) { o.folder = ParsePath(n, v); }},
    {L"--file", [](Options& o, const std::wstring& n, const std::wstring& v) { o.file = ParsePath(n, v); }},
    {L"--database", [](Options& o, const std::wstring& n, const std::wstring& v) { o.database = ParsePath(n, v); }},
    {L"--end", [](Options& o, const std::wstring& n, const std::wstring& v) { o.end = ParseDate(n, v); }},
    {L"--kind", [](Options& o, const std::wstring& n, const std::wstring& v) { o.kinds.push_back(ParseKind(n, v)); }},
    {L"--days", [](Options& o, const std::wstring& n, const std::wstring& v)
     { o.days = static_cast<unsigned>(ParseNumber(n, v, 1, MostDays)); }},
    {L"--seed",
     [](Options& o, const std::wstring& n, const std::wstring& v) { o.seed = ParseNumber(n, v, 0, UINT64_MAX); }},
    {L"--lines",
     [](Options& o, const std::wstring& n, const std::wstring& v) { o.lines = ParseNumber(n, v, 0, MostLines); }},
};

Setter FindOption(const std::wstring& name)
{
    for (const OptionRow& row : OptionTable)
    {
        if (row.name == name)
        {
            return row.set;
        }
    }
    Refuse("there is no option \"" + Suite::Utf8(name) + "\".");
}

void CheckTask(Options& options)
{
    if (options.lines &&
        (options.file.empty() || options.kinds.size() != 1 || !options.folder.empty() || !options.database.empty()))
    {
        Refuse("--lines writes one file: give it --file and one --kind, and no --folder or --database.");
    }
    if (!options.lines && ((options.folder.empty() && options.database.empty()) || !options.file.empty()))
    {
        Refuse("say where the records go with --folder or --database, or ask for one file with --lines, --kind and "
               "--file.");
    }
    if (options.kinds.empty())
    {
        for (const Kind& kind : AllKinds())
        {
            options.kinds.push_back(&kind);
        }
    }
}

} // namespace

Options ParseCommandLine(std::span<const std::wstring> arguments, Date today)
{
    Options options;
    options.end = today;
    for (std::size_t i = 0; i < arguments.size(); i += 2)
    {
        if (arguments[i] == L"--help")
        {
            options.help = true;
            return options;
        }
        const Setter set = FindOption(arguments[i]);
        if (i + 1 == arguments.size())
        {
            Refuse(Suite::Utf8(arguments[i]) + " needs a value after it.");
        }
        set(options, arguments[i], arguments[i + 1]);
    }
    CheckTask(options);
    return options;
}

std::string HelpText()
{
    return "SampleLogs writes made-up event logs: daily files, or records in the event-log database, or both.\n"
           "\n"
           "usage: SampleLogs [--folder DIR] [--database DB] [--end YYYYMMDD] [--days N] [--seed N] [--kind EXT]...\n"
           "       SampleLogs --lines N --kind EXT --file FILE [--end YYYYMMDD] [--seed N]\n"
           "       SampleLogs --help\n"
           "\n"
           "  --folder DIR    write YYYYMMDD.EXT files into this folder, which is made when it is missing\n"
           "  --database DB   write the records into this database file, which is made when it is missing; a day of a\n"
           "                  kind that it has already is replaced\n"
           "  --end YYYYMMDD  the last day; today without it\n"
           "  --days N        number of days that end with that day; 30 without it\n"
           "  --seed N        another number gives another month; 1 without it\n"
           "  --kind EXT      this kind only; may be given several times; all kinds without it:\n"
           "                  " +
           KindNames() +
           "\n"
           "  --lines N       write one file of N records instead, all of the one kind\n"
           "  --file FILE     the name of that file\n"
           "\n"
           "exit status: 0 done, 1 something could not be written, 2 wrong command line\n";
}

} // namespace Samples
