// The command lines of the viewer, of the service and of the program that imports files.

#include "framework/ui/kestrix/app/CommandLine.h"
#include "suite/common/Failure.h"
#include "suite/framework/CommandLine.h"
#include "suite/import/CommandLine.h"
#include "tests/fuzz/Harness.h"

#include <algorithm>
#include <cwchar>
#include <optional>

using namespace Fuzz;

namespace
{

constexpr std::uint32_t TypeOfCode[] = {1, 0, 5, 3, 2, 6, 15, 8, 9, 15, 7, 11, 12, 13, 14};
constexpr std::uint32_t NoType = 15;

using Fields = std::vector<std::wstring>;

// The fields of a line; what follows the fifth separator is the sixth.
Fields PlainFields(std::wstring line)
{
    Fields fields;
    for (std::size_t end = line.find(L"%|"); fields.size() < 5 && end != line.npos; end = line.find(L"%|"))
    {
        fields.push_back(line.substr(0, end));
        line.erase(0, end + 2);
    }
    fields.push_back(line);
    return fields;
}

bool IsPlainlyLocal(const std::wstring& target)
{
    return CompareStringOrdinal(target.c_str(), -1, L"LocalLog", -1, TRUE) == CSTR_EQUAL;
}

class CommandLineReader : public TextReader
{
    std::size_t ReadText(std::wstring_view text) override
    {
        const std::wstring line(text.substr(0, text.find(L'\0'))); // as long as the system's is
        const Fields expected = PlainFields(line);
        const std::optional<CommandLine> cut = CutCommandLine(line);
        ExpectSame(cut.has_value(), expected.size() == 6, "whether there are fields");
        if (!cut)
        {
            return expected.size();
        }
        const Fields found{cut->target, cut->logType, cut->localAddress, cut->logPath, expected[4], cut->number};
        ExpectSame(found, expected, "the fields");
        ExpectSame(IsLocalTarget(cut->target), IsPlainlyLocal(cut->target), "whether the target is the local one");
        const long code = std::wcstol(cut->logType.c_str(), nullptr, 10);
        const bool hasType = code >= 0 && code < static_cast<long>(std::size(TypeOfCode));
        const std::uint32_t type = hasType ? TypeOfCode[code] : NoType;
        ExpectSame(LogTypeOfCode(cut->logType), type, "the type of the log");
        return 100 + 2 * type + (IsLocalTarget(cut->target) ? 1 : 0);
    }
};

// The arguments of a program, one a line; none of an empty text.
std::vector<std::wstring> ArgumentsOf(std::wstring_view text)
{
    return text.empty() ? std::vector<std::wstring>() : Pieces(text, L'\n');
}

class ServiceCommandReader : public TextReader
{
    std::size_t ReadText(std::wstring_view text) override
    {
        using namespace Framework;
        const std::vector<std::wstring> arguments = ArgumentsOf(text);
        Options options;
        try
        {
            options = ParseCommandLine(arguments);
        }
        catch (const BadCommandLine&)
        {
            return 0;
        }
        Expect(std::ranges::find(arguments, L"") == arguments.end(), "an empty argument");
        Expect(options.rules.empty() || options.task == Task::Rules, "a file of rules without its task");
        Expect(options.idle.count() >= 0 && options.idle.count() <= 99'999'999, "an idle time out of range");
        // What the system is told to start the service with must be read as it was.
        const std::wstring line = ServiceCommandLine(L"s.exe", options);
        const std::wstring argument = line.substr(std::min(line.size(), line.find(L' ')));
        const auto again = ParseCommandLine(ArgumentsOf(std::wstring_view(argument).substr(!argument.empty())));
        ExpectSame(again.idle.count(), options.idle.count(), "the idle time that is registered");
        return 1 + static_cast<std::size_t>(options.task) * 4 + (options.idle.count() == 0) + 2 * options.rules.empty();
    }
};

class ImportCommandReader : public TextReader
{
    std::size_t ReadText(std::wstring_view text) override
    {
        const std::vector<std::wstring> arguments = ArgumentsOf(text);
        Import::Options options;
        try
        {
            options = Import::ParseCommandLine(arguments);
        }
        catch (const Suite::Failure& failure)
        {
            Expect(failure.Code() == Suite::ExitCode::BadCommandLine, "refused for another reason");
            return 0;
        }
        if (options.help)
        {
            return 1;
        }
        const std::size_t databases = options.database.empty() ? 0 : 1;
        ExpectSame(options.paths.size(), arguments.size() - 2 * databases, "the count of paths");
        const auto isNone = [](const std::filesystem::path& path)
        { return path.empty() || path.native().starts_with(L"--"); };
        Expect(std::ranges::none_of(options.paths, isNone), "a path that is none");
        return 2 + databases + 2 * std::min<std::size_t>(options.paths.size(), 7);
    }
};

const Registration<CommandLineReader> CommandLine(
    {.name = "commandline",
     .reads = "the command line of the viewer",
     .inputs = 30'000,
     .separators = L"%|",
     .words = L"%| |% %%| LocalLog locallog LOCALLOG LocalLog\x212A Files 14 9 C:\\Logs\\20261121.VLG 192.0.2.77"});

const Registration<ServiceCommandReader> ServiceCommand(
    {.name = "servicecommand",
     .reads = "the command line of the service",
     .inputs = 30'000,
     .separators = L"\n:",
     .words = L"/RegServer -regserver /UNREGSERVER /Exit /Rules /Embedding /? /Idle: /Idle:0 /idle:99999999 "
              L"/idle:100000000 - / rules.txt /\x212A \n"});

const Registration<ImportCommandReader>
    ImportCommand({.name = "importcommand",
                   .reads = "the command line of the program that imports",
                   .inputs = 30'000,
                   .separators = L"\n",
                   .words = L"--database --help /? -- --data a.db 20261121.VLG folder \n"});

} // namespace
