// The counts of a report about a folder in memory.

#include "framework/ui/kestrix/report/ReportCollector.h"
#include "tests/fuzz/Harness.h"
#include "tests/support/StandingClock.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainLines.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainReaders.h"
#include "tests/unit/framework/ui/kestrix/report/ReportFilesDouble.h"

#include <chrono>
#include <cwchar>
#include <numeric>
#include <optional>

using namespace Fuzz;

namespace
{

using Entry = ReportFilesDouble::Entry;

using namespace std::chrono;

constexpr sys_days Today = year{2026} / November / 21;

// The day that a name tells, as days back from today; nothing for a name that tells none.
std::optional<int> DaysBack(const Entry& entry)
{
    if (entry.isDirectory || entry.name.size() != 12)
    {
        return std::nullopt;
    }
    const auto number = [&](std::size_t from, std::size_t length)
    { return static_cast<int>(std::wcstol(entry.name.substr(from, length).c_str(), nullptr, 10)); };
    const int monthNumber = number(4, 2);
    const int dayNumber = number(6, 2);
    if (number(0, 4) < 100 || monthNumber < 1 || dayNumber < 1)
    {
        return std::nullopt;
    }
    const year_month_day date{year{number(0, 4)}, month{static_cast<unsigned>(monthNumber)},
                              day{static_cast<unsigned>(dayNumber)}};
    return date.ok() ? std::optional((Today - sys_days(date)).count()) : std::nullopt;
}

// The file of a day: whatever told the day, what is read is the file whose name is written in digits.
const Entry* FileOfDay(const std::vector<Entry>& files, int daysBack, const std::wstring& extension)
{
    const year_month_day date(Today - days(daysBack));
    wchar_t name[32]{};
    std::swprintf(name, std::size(name), L"%04d%02u%02u%ls", int{date.year()}, unsigned{date.month()},
                  unsigned{date.day()}, extension.c_str());
    for (const Entry& entry : files)
    {
        if (IsSameName(entry.name, name))
        {
            return entry.isDirectory || !entry.isReadable ? nullptr : &entry;
        }
    }
    return nullptr;
}

struct Events
{
    std::uint32_t all = 0;
    std::uint32_t first = 0;
    std::uint32_t second = 0;
};

void CountLine(const std::wstring& extension, const std::wstring& line, Events& events)
{
    const std::vector<std::wstring> fields = Pieces<wchar_t>(line, L'|');
    if (extension == L".SCG" && fields.size() > 12)
    {
        events.first += Plain::NarrowedNumber(fields[12], 10) == 2;
        events.second += Plain::NarrowedNumber(fields[12], 10) == 0;
    }
    if (extension == L".SPG" && fields.size() > 2)
    {
        const std::uint32_t kind = Plain::NarrowedNumber(fields[2], 0);
        events.second += kind == 1 || kind == 2 || kind == 3;
    }
    if (extension == L".SPG" && fields.size() > 12)
    {
        ++(Plain::NarrowedNumber(fields[12], 10) == 1 ? events.first : events.second);
    }
    if (extension != L".SCG" && extension != L".SPG")
    {
        ++events.all;
    }
}

Events CountInterval(const std::vector<Entry>& files, const std::wstring& extension, int from, int to)
{
    Events events;
    for (const Entry& entry : files)
    {
        const std::optional<int> daysBack = HasExtension(entry.name, extension) ? DaysBack(entry) : std::nullopt;
        if (!daysBack || *daysBack < from || *daysBack >= to)
        {
            continue;
        }
        if (const Entry* const file = FileOfDay(files, *daysBack, extension))
        {
            for (const std::wstring& line : Plain::Lines(file->text))
            {
                CountLine(extension, line, events);
            }
        }
    }
    return events;
}

// The events of one line of a report, interval by interval; of a line with two sorts of events, those of each as well.
struct ReferenceLine
{
    std::vector<std::uint32_t> series;
    std::vector<std::uint32_t> first;  // blocked changes, detected spyware
    std::vector<std::uint32_t> second; // allowed changes, other spyware
};

// The five lines of a report about these files on 21 November 2026, counted a second time, plain and slow, from what
// is asked of a report. No name may tell a year from 100 to 1899.
std::vector<ReferenceLine> CountReport(const std::vector<Entry>& files, std::uint32_t span, std::uint32_t intervals)
{
    std::vector<ReferenceLine> lines;
    for (const wchar_t* const extension : {L".VLG", L".SCG", L".SPG", L".UFG", L".PPG"})
    {
        ReferenceLine& line = lines.emplace_back();
        for (std::uint32_t i = 0; i < intervals; ++i)
        {
            const Events events = CountInterval(files, extension, static_cast<int>(i * span / intervals),
                                                static_cast<int>((i + 1) * span / intervals));
            line.series.push_back(events.all + events.first + events.second);
            line.first.push_back(events.first);
            line.second.push_back(events.second);
        }
    }
    return lines;
}

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
