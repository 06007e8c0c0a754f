// The counts of a report about a folder in memory.

#include "framework/ui/kestrix/report/ReportCollector.h"
#include "tests/fuzz/Harness.h"
#include "tests/support/StandingClock.h"
#include "tests/unit/framework/ui/kestrix/report/ReportReference.h"

namespace Fuzz
{

namespace
{

using Entry = ReportFilesDouble::Entry;

constexpr wchar_t FileMark = L'\f'; // before each file
constexpr wchar_t TextMark = L'\v'; // between its name and its text

// Whether the calendar of the system refuses the year, and the report with it, as its tests tell.
bool IsRefused(const std::wstring& name)
{
    const long year = std::wcstol(name.substr(0, 4).c_str(), nullptr, 10);
    return year >= 100 && (year <= 1970 || year >= 3000);
}

// The first two characters say how many days and intervals there are.
class ReportReader : public TextReader
{
    std::size_t ReadText(std::wstring_view text) override
    {
        if (text.size() < 2)
        {
            return 0;
        }
        const std::uint32_t span = text[0] % 40;
        const std::uint32_t intervals = text[1] % 12;
        ReportFilesDouble folder;
        folder.m_arrEntry = EntriesOf(text.substr(2));
        const ReportCounts counts = CReportCollector(folder, span, intervals).Collect();
        const std::vector<ReferenceLine> expected = CountReport(folder.m_arrEntry, span, intervals);
        std::size_t outcome = folder.m_arrEntry.size();
        auto reference = expected.begin();
        for (const ReportLineCounts& line : ReportLines())
        {
            ExpectSame(counts.*line.series, reference->series, "a series");
            ExpectSort(line.sorts[0], counts, reference->first);
            ExpectSort(line.sorts[1], counts, reference->second);
            outcome = outcome * 31 + counts.*line.total;
            ++reference;
        }
        return outcome;
    }

    static void ExpectSort(const ReportSort& sort, const ReportCounts& counts, const std::vector<std::uint32_t>& series)
    {
        if (sort.series != nullptr)
        {
            ExpectSame(counts.*sort.series, series, "the series of a sort");
        }
    }

    static std::vector<Entry> EntriesOf(std::wstring_view text)
    {
        std::vector<Entry> entries;
        for (const std::wstring& part : Pieces(text, FileMark))
        {
            const std::wstring name = part.substr(0, part.find(TextMark));
            const Entry entry{.name = name, .text = part.substr(std::min(part.size(), name.size() + 1))};
            const auto isSame = [&](const Entry& other) { return IsSameName(other.name, entry.name); };
            if (!IsRefused(entry.name) && std::ranges::none_of(entries, isSame))
            {
                entries.push_back(entry);
            }
        }
        return entries;
    }

    const StandingClock m_clock;
};

const Registration<ReportReader>
    Report({.name = "report",
            .reads = "names and lines of the daily files that a report counts",
            .inputs = 6'000,
            .separators = L"\f\v\r\n|",
            .words = L"20261121.VLG 20261120.SCG 20261118.SPG 20261115.UFG 20261121.ppg \f \v \r\n ||| ||||||||||||2 "
                     L"||1||||||||||1 20260229.VLG 0x3"});

} // namespace

} // namespace Fuzz
