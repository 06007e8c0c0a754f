// The command line of the program that imports files.

#include "suite/common/Failure.h"
#include "suite/import/CommandLine.h"
#include "tests/fuzz/harness/ArgumentLines.h"

namespace Fuzz
{

namespace
{

using namespace std::string_view_literals;

constexpr std::wstring_view Words = L"--database --help /? -- --data a.db 20261121.VLG folder \n"sv;

class ImportCommandReader : public TextReader
{
    std::vector<std::wstring> Texts() const override
    {
        return {L"20261121.VLG\nfolder", L"--database\na.db\n20261121.VLG", L"folder\n--database\na.db", L"--help"};
    }

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
        Expect(std::ranges::none_of(options.paths, &std::filesystem::path::empty), "an empty path");
        return 2 + databases + 2 * std::min<std::size_t>(options.paths.size(), 7);
    }
};

} // namespace

constinit const Harness ImportCommandHarness{.name = "importcommand",
                                             .reads = "the command line of the program that imports",
                                             .form = Form::Utf16,
                                             .inputs = 30'000,
                                             .separators = L"\n",
                                             .words = Words,
                                             .make = &Make<ImportCommandReader>};

} // namespace Fuzz
