// The command line of the service.

#include "suite/framework/CommandLine.h"
#include "tests/fuzz/harness/ArgumentLines.h"

namespace Fuzz
{

namespace
{

using namespace std::string_view_literals;

using namespace Framework;

constexpr std::wstring_view Words =
    L"/RegServer -regserver /UNREGSERVER /Exit /Rules /Embedding /? /Idle: /Idle:0 /idle:99999999 "
    L"/idle:100000000 - / rules.txt /\x212A \n"sv;

class ServiceCommandReader : public TextReader
{
    std::vector<std::wstring> Texts() const override
    {
        return {L"", L"/RegServer\n/Idle:250", L"/Rules\nC:\\a b\\rules.txt", L"-Embedding", L"/Exit"};
    }

    std::size_t ReadText(std::wstring_view text) override
    {
        Options options;
        try
        {
            options = ParseCommandLine(ArgumentsOf(text));
        }
        catch (const BadCommandLine&)
        {
            return 0;
        }
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

} // namespace

constinit const Harness ServiceCommandHarness{.name = "servicecommand",
                                              .reads = "the command line of the service",
                                              .form = Form::Utf16,
                                              .inputs = 30'000,
                                              .separators = L"\n:",
                                              .words = Words,
                                              .make = &Make<ServiceCommandReader>};

} // namespace Fuzz
