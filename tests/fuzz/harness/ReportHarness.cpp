// The counts of a report about a folder in memory.

#include "framework/ui/kestrix/report/ReportCollector.h"
#include "tests/fuzz/Harness.h"
#include "tests/fuzz/ReportReference.h"
#include "tests/support/StandingClock.h"

#include <numeric>

namespace Fuzz
{

namespace
{

using Entry = ReportFilesDouble::Entry;

constexpr wchar_t FileMark = L'\f';     // before each file
constexpr wchar_t TextMark = L'\v';     // between its name and its text
constexpr wchar_t DirectoryMark = L'/'; // in the place of the text
constexpr wchar_t LockMark = L'!';      // before the text of a file that cannot be read

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
        std::size_t outcome = folder.m_arrEntry.size();
        std::uint32_t total = 0;
        ReportSeries maxima;
        const std::vector<ReferenceLine> reference = CountReport(folder.m_arrEntry, span, intervals);
        auto expected = reference.begin();
        for (const ReportLineCounts& line : ReportLines())
        {
            ExpectEvents(counts, {.series = line.series, .total = line.total}, expected->series);
            ExpectEvents(counts, line.sorts[0], expected->first);
            ExpectEvents(counts, line.sorts[1], expected->second);
            ExpectSame(counts.*line.max, Greatest(expected->series), "the maximum of a line");
            maxima.push_back(counts.*line.max);
            total += counts.*line.total;
            outcome = outcome * 31 + counts.*line.total;
            ++expected;
        }
        ExpectSame(counts.m_nGrandTotal, total, "the total of all lines");
        ExpectSame(counts.m_vecSeriesMax, maxima, "the maxima of the lines");
        ExpectSame(counts.m_nMaxCount, Greatest(maxima), "the maximum of all lines");
        return outcome;
    }

    static std::uint32_t Greatest(const ReportSeries& series)
    {
        return series.empty() ? 0 : *std::ranges::max_element(series);
    }

    static void ExpectEvents(const ReportCounts& counts, const ReportSort& sort, const ReportSeries& expected)
    {
        if (sort.series != nullptr)
        {
            ExpectSame(counts.*sort.series, expected, "a series");
            ExpectSame(counts.*sort.total, std::accumulate(expected.begin(), expected.end(), 0U), "a total");
        }
    }

    static std::vector<Entry> EntriesOf(std::wstring_view text)
    {
        std::vector<Entry> entries;
        for (const std::wstring& part : Pieces(text, FileMark))
        {
            const std::wstring name = part.substr(0, part.find(TextMark));
            const std::wstring content = part.substr(std::min(part.size(), name.size() + 1));
            const Entry entry{.name = name,
                              .text = content,
                              .isDirectory = content.starts_with(DirectoryMark),
                              .isReadable = !content.starts_with(LockMark)};
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

const Registration<ReportReader> Report(
    {.name = "report",
     .reads = "names and lines of the daily files that a report counts",
     .inputs = 10'000,
     .separators = L"\f\v\r\n|",
     .words = L"20261121.VLG 20261120.SCG 20261118.SPG 20261115.UFG 20261121.ppg \f \v \v/ \v! \r\n ||| ||||||||||||2 "
              L"||1||||||||||1 20260229.VLG 0x3"});

} // namespace

} // namespace Fuzz
