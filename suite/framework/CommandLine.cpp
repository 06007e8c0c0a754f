#include "suite/framework/CommandLine.h"

#include "suite/framework/Utf8.h"

#include <algorithm>
#include <cwctype>

namespace Framework
{

namespace
{

struct TaskRow
{
    std::wstring_view name;
    Task task;
};

// Embedding is what the system adds when a client starts the service.
constexpr TaskRow Tasks[] = {
    {L"regserver", Task::Register}, {L"unregserver", Task::Unregister}, {L"exit", Task::Exit},
    {L"rules", Task::Rules},        {L"embedding", Task::Serve},        {L"?", Task::Help},
};

constexpr std::wstring_view Idle = L"idle:";
constexpr std::size_t MostDigits = 8; // a day and more in milliseconds

[[noreturn]] void Refuse(const std::wstring& argument)
{
    throw BadCommandLine("\"" + Narrow(argument) + "\" is no argument. VdFrwkSvc /? lists them.");
}

bool ReadIdle(Options& options, std::wstring_view word)
{
    if (!word.starts_with(Idle))
    {
        return false;
    }
    const std::wstring digits(word.substr(Idle.size()));
    const bool isNumber =
        !digits.empty() && digits.size() <= MostDigits && digits.find_first_not_of(L"0123456789") == std::wstring::npos;
    if (isNumber)
    {
        options.idle = std::chrono::milliseconds(std::stoul(digits));
    }
    return isNumber;
}

// One task: a second one would be done, and the first not told of.
bool ReadTask(Options& options, std::wstring_view word)
{
    const auto row = std::ranges::find(Tasks, word, &TaskRow::name);
    if (row == std::end(Tasks) || (options.task != Task::Serve && options.task != row->task))
    {
        return false;
    }
    options.task = row->task;
    return true;
}

bool ReadOption(Options& options, const std::wstring& argument)
{
    std::wstring word = argument;
    std::ranges::transform(word, word.begin(), std::towlower);
    const bool isOption = word.starts_with(L'/') || word.starts_with(L'-');
    word.erase(0, 1);
    return isOption && (ReadTask(options, word) || ReadIdle(options, word));
}

// The file follows /Rules.
bool ReadFile(Options& options, const std::wstring& argument)
{
    const bool isFile = options.task == Task::Rules && options.rules.empty() && !argument.empty();
    if (isFile)
    {
        options.rules = argument;
    }
    return isFile;
}

} // namespace

Options ParseCommandLine(std::span<const std::wstring> arguments)
{
    Options options;
    for (const std::wstring& argument : arguments)
    {
        if (!ReadOption(options, argument) && !ReadFile(options, argument))
        {
            Refuse(argument);
        }
    }
    return options;
}

std::wstring ServiceCommandLine(const std::wstring& program, const Options& options)
{
    std::wstring line = L"\"" + program + L"\"";
    if (options.idle != Options().idle)
    {
        line += L" /" + std::wstring(Idle) + std::to_wstring(options.idle.count());
    }
    return line;
}

std::string HelpText()
{
    return "VdFrwkSvc is the service framework's process. Clients start it through COM.\n"
           "\n"
           "usage: VdFrwkSvc /RegServer [/Idle:MS]\n"
           "       VdFrwkSvc /UnregServer\n"
           "       VdFrwkSvc /Exit\n"
           "       VdFrwkSvc /Rules [FILE]\n"
           "\n"
           "  /RegServer    registers the service and the library VdFrwkPs.dll beside it\n"
           "  /UnregServer  takes both out of the registry\n"
           "  /Exit         has the service that runs tell its clients to exit; without one nothing is done\n"
           "  /Rules        prints the firewall rules as a table that tells its form; with a file, loads its rules in\n"
           "                their place, and none of them when a line is wrong\n"
           "  /Idle:MS      milliseconds that the service stays unused before it ends; 5000 without it\n"
           "\n"
           "exit status: 0 done, 1 something failed, 2 wrong command line\n";
}

} // namespace Framework
