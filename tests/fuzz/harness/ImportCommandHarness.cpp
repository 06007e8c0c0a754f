// The command line of the program that imports files.

#include "suite/samples/CommandLine.h"
#include "suite/samples/Failure.h"
#include "tests/fuzz/harness/ArgumentLines.h"

namespace Fuzz
{

namespace
{

using namespace std::string_view_literals;

using namespace Samples;

constexpr std::wstring_view Words =
    L"--folder --file --database --import --end --kind --days --seed --lines --help -- VLG vlg 20261121 "
    L"20260230 19110101 19101231 99991231 3660 3661 18446744073709551615 18446744073709551616 100000000 "
    L"a.db \n"sv;

class ImportCommandReader : public TextReader
{
    std::vector<std::wstring> Texts() const override
    {
        return {L"--folder\nlogs\n--end\n20261121\n--days\n3\n--seed\n7\n--kind\nVLG",
                L"--import\n20261121.VLG\n--import\nfolder\n--database\na.db",
                L"--lines\n10\n--kind\nSPG\n--file\n20261121.SPG", L"--help"};
    }

    std::size_t ReadText(std::wstring_view text) override
    {
        const Date today = std::chrono::sys_days(std::chrono::year{2026} / 11 / 21);
        Options options;
        try
        {
            options = ParseCommandLine(ArgumentsOf(text), today);
        }
        catch (const Failure&)
        {
            return 0;
        }
        if (options.help)
        {
            return 1;
        }
        Expect(!options.kinds.empty(), "no kinds");
        Expect(options.days >= 1 && options.days <= 3660, "the days are out of range");
        Expect(std::chrono::year_month_day(options.end).ok(), "the end is no date");
        Expect(!options.lines || (options.kinds.size() == 1 && !options.file.empty()), "lines without their file");
        Expect(options.imports.empty() || !options.database.empty(), "an import without a database");
        return 2 + options.lines.has_value() + 2 * !options.imports.empty() + 4 * !options.folder.empty() +
               8 * std::min<std::size_t>(options.kinds.size(), 14) + 128 * (options.days == 30);
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
