// The counts of generated folders, compared with a plain count of the same files.

#include "framework/ui/kestrix/report/ReportCollector.h"
#include "suite/samples/Random.h"
#include "tests/support/DebugScale.h"
#include "tests/support/Seed.h"
#include "tests/support/StandingClock.h"
#include "tests/unit/framework/ui/kestrix/report/ReportFilesDouble.h"
#include "tests/unit/framework/ui/kestrix/report/ReportReference.h"

#include <gtest/gtest.h>

#include <chrono>
#include <numeric>

namespace
{

using Samples::Random;
using Entry = ReportFilesDouble::Entry;

template <std::size_t Count>
std::wstring OneOf(Random& random, const wchar_t* const (&texts)[Count])
{
    return texts[random.Below(Count)];
}

// A name that tells a day around the span, or nearly.
std::wstring RandomName(Random& random, std::uint32_t span)
{
    static constexpr const wchar_t* Extensions[] = {L".VLG", L".SCG", L".SPG", L".UFG", L".PPG",
                                                    L".vlg", L".Spg", L".UPG", L".VLG2"};
    static constexpr const wchar_t* NoDays[] = {L"20261131", L"20260230", L"20261301", L"20260001", L"20261100",
                                                L"00501121", L"abcdefgh", L"2026112",  L"202611211"};
    using namespace std::chrono;
    const int back = static_cast<int>(random.Below(span + 4)) - 2;
    const year_month_day date(sys_days(year{2026} / November / 21) - days(back));
    const wchar_t* const form = random.Chance(90) ? L"%04d%02u%02u" : L"%04d%2u%2u";
    wchar_t day[16]{};
    std::swprintf(day, std::size(day), form, int{date.year()}, unsigned{date.month()}, unsigned{date.day()});
    return (random.Chance(90) ? std::wstring(day) : OneOf(random, NoDays)) + OneOf(random, Extensions);
}

std::wstring RandomLine(Random& random)
{
    static constexpr const wchar_t* Fields[] = {L"",  L"0",  L"1",  L"2",          L"3",           L"0x1", L"03",
                                                L"4", L" 2", L"2x", L"4294967297", L"-4294967295", L"x",   L"\u0661"};
    static constexpr const wchar_t* Ends[] = {L"\n", L"\r", L"\r\r\n", L"\r\n\r\n", L"", L"\r\n"};
    std::wstring line;
    if (random.Chance(2))
    {
        line.assign(2040 + random.Below(10) + 2046 * random.Below(2), L'x');
    }
    for (std::uint32_t left = random.Chance(70) ? 12 : random.Below(15); left > 0; --left)
    {
        line += OneOf(random, Fields) + L"|";
    }
    return line + OneOf(random, Fields) + (random.Chance(90) ? L"\r\n" : OneOf(random, Ends));
}

std::vector<Entry> RandomFolder(Random& random, std::uint32_t span)
{
    std::vector<Entry> files;
    for (std::uint32_t left = random.Below(10); left > 0; --left)
    {
        Entry entry{.name = RandomName(random, span),
                    .text = {},
                    .isDirectory = random.Chance(5),
                    .isReadable = random.Chance(95)};
        for (std::uint32_t lines = random.Below(5); lines > 0; --lines)
        {
            entry.text += RandomLine(random);
        }
        const auto isSame = [&](const Entry& other) { return IsSameName(other.name, entry.name); };
        if (std::ranges::none_of(files, isSame))
        {
            files.push_back(entry);
        }
    }
    return files;
}

// The counts in the form of the reference.
std::vector<ReferenceLine> InFormOfReference(const ReportCounts& counts)
{
    std::vector<ReferenceLine> lines;
    for (const ReportLineCounts& line : ReportLines())
    {
        const ReportSeries none((counts.*line.series).size(), 0);
        const bool hasSorts = line.sorts[0].series != nullptr;
        lines.push_back({counts.*line.series, hasSorts ? counts.*line.sorts[0].series : none,
                         hasSorts ? counts.*line.sorts[1].series : none});
    }
    return lines;
}

std::string Story(const std::vector<Entry>& files)
{
    std::string story;
    for (const Entry& entry : files)
    {
        story += testing::PrintToString(entry.name) + (entry.isDirectory ? " directory" : "") +
                 (entry.isReadable ? "" : " unreadable") + " " + testing::PrintToString(entry.text) + "\n";
    }
    return story;
}

// The totals and maxima must be those of the series.
void ExpectTotalsOfSeries(const ReportCounts& counts)
{
    std::uint32_t all = 0;
    std::uint32_t greatest = 0;
    for (const ReportLineCounts& line : ReportLines())
    {
        const ReportSeries& series = counts.*line.series;
        const std::uint32_t max = series.empty() ? 0 : *std::max_element(series.begin(), series.end());
        EXPECT_EQ(counts.*line.total, std::accumulate(series.begin(), series.end(), 0u));
        EXPECT_EQ(counts.*line.max, max);
        all += counts.*line.total;
        greatest = std::max(greatest, max);
    }
    EXPECT_EQ(counts.m_nGrandTotal, all);
    EXPECT_EQ(counts.m_nMaxCount, greatest);
}

} // namespace

TEST(ReportFoldersTest, TheCountsOfTenThousandFoldersAreThoseOfAPlainCount)
{
    const StandingClock clock;
    const std::uint32_t seed = Seed();
    Random random(seed);
    std::uint64_t events = 0;
    ReportFilesDouble folder;
    for (std::size_t number = 1; number <= Scaled(10'000); ++number)
    {
        const std::uint32_t span = 3 + random.Below(28);
        const std::uint32_t intervals = random.Below(11);
        folder.m_arrEntry = RandomFolder(random, span);
        const ReportCounts counts = CReportCollector(folder, span, intervals).Collect();
        ASSERT_EQ(InFormOfReference(counts), CountReport(folder.m_arrEntry, span, intervals))
            << "folder " << number << " of KESTRIX_SEED=" << seed << ", " << span << " days in " << intervals
            << " intervals\n"
            << Story(folder.m_arrEntry);
        ExpectTotalsOfSeries(counts);
        events += counts.m_nGrandTotal;
    }
    EXPECT_GT(events, Scaled(10'000)) << "with so few events the folders say little";
}

TEST(ReportFoldersTest, AFolderOnTheDiskCountsAsTheSameOneInMemory)
{
    const StandingClock clock;
    Random random(Seed());
    for (std::size_t number = 1; number <= 30; ++number)
    {
        ReportFilesDouble folder;
        folder.m_arrEntry = RandomFolder(random, 7);
        const TemporaryFolder disk;
        for (const Entry& entry : folder.m_arrEntry)
        {
            // What cannot be read in memory is not on the disk.
            if (entry.isDirectory)
            {
                std::filesystem::create_directory(disk.File(entry.name));
            }
            else if (entry.isReadable)
            {
                WriteUtf16(disk.File(entry.name), entry.text);
            }
        }
        std::erase_if(folder.m_arrEntry, [](const Entry& entry) { return !entry.isDirectory && !entry.isReadable; });
        CReportFolder files(disk.Path().wstring() + L"\\");
        const ReportCounts counts = CReportCollector(files, 7, 3).Collect();
        ASSERT_EQ(InFormOfReference(counts), CountReport(folder.m_arrEntry, 7, 3)) << Story(folder.m_arrEntry);
    }
}
