#include "suite/framework/CommandLine.h"
#include "suite/framework/Instance.h"
#include "suite/framework/Registration.h"
#include "suite/framework/RulesTask.h"
#include "suite/framework/Server.h"

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

namespace
{

enum ExitCode
{
    Done = 0,
    Failed = 1,
    WrongCommandLine = 2,
};

void Run(const Framework::Options& options)
{
    switch (options.task)
    {
    case Framework::Task::Serve:
        Framework::Serve(options);
        break;
    case Framework::Task::Register:
        Framework::RegisterServer(options);
        break;
    case Framework::Task::Unregister:
        Framework::UnregisterServer();
        break;
    case Framework::Task::Exit:
        if (!Framework::Instance::RequestExit())
        {
            std::fputs("VdFrwkSvc: the service is not running.\n", stderr);
        }
        break;
    case Framework::Task::Rules:
        options.rules.empty() ? Framework::PrintRules() : Framework::LoadRules(options.rules);
        break;
    case Framework::Task::Help:
        std::fputs(Framework::HelpText().c_str(), stdout);
        break;
    }
}

int Report(const char* text, ExitCode code)
{
    std::fprintf(stderr, "VdFrwkSvc: %s\n", text);
    return code;
}

} // namespace

int wmain(int argc, wchar_t** argv)
{
    try
    {
        const std::vector<std::wstring> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
        Run(Framework::ParseCommandLine(arguments));
        return Done;
    }
    catch (const Framework::BadCommandLine& error)
    {
        return Report(error.what(), WrongCommandLine);
    }
    catch (const std::exception& error)
    {
        return Report(error.what(), Failed);
    }
}
