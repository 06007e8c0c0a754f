// Counting the events of a month for the report, beside a bare scan of the same files; and the memory of it, beside
// that of a month of a tenth of the size.

#include "framework/ui/kestrix/report/ReportCollector.h"
#include "tests/bench/BareScan.h"
#include "tests/bench/Bench.h"
#include "tests/bench/BenchFile.h"
#include "tests/bench/Timing.h"
#include "tests/support/TemporaryFolder.h"

#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace
{

constexpr double Budget = 3;
constexpr double MemoryBudget = 1.05; // of a tenth of the files: what is kept does not grow with them
constexpr std::uint32_t Days = 30;
constexpr std::uint32_t Intervals = 10;
constexpr std::uint64_t RecordsADay = 5'000; // of each kind: some 200 MB of files
constexpr std::uint64_t FewRecordsADay = RecordsADay / 10;
constexpr double Megabyte = 1024.0 * 1024.0;

// The name of the daily file of so many days ago.
std::wstring DayName(std::uint32_t daysBack, std::wstring_view extension)
{
    using namespace std::chrono;
    SYSTEMTIME now{};
    GetLocalTime(&now);
    const sys_days today = year{now.wYear} / month{now.wMonth} / day{now.wDay};
    const year_month_day date(today - days(daysBack));
    const int number = (int{date.year()} * 100 + static_cast<int>(unsigned{date.month()})) * 100 +
                       static_cast<int>(unsigned{date.day()});
    return std::to_wstring(number) + L"." + std::wstring(extension);
}

// A folder of files that looks at the private memory of this program whenever a file is opened.
class WeighedFolder : public CReportFiles
{
public:
    explicit WeighedFolder(std::wstring folder) : m_files(std::move(folder)) {}

    void ForEachEntry(const std::wstring& extension, const VisitEntry& visit) override
    {
        m_files.ForEachEntry(extension, visit);
    }

    LogLineReader* Open(const std::wstring& name) override
    {
        PROCESS_MEMORY_COUNTERS counters{};
        counters.cb = sizeof counters;
        GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
        m_nMost = std::max(m_nMost, counters.PagefileUsage);
        return m_files.Open(name);
    }

    double MostMegabytes() const { return static_cast<double>(m_nMost) / Megabyte; }

private:
    CReportFolder m_files;
    SIZE_T m_nMost = 0;
};

// A folder with a month of files of every kind that the report counts, each day of a kind the same.
class Month
{
public:
    explicit Month(std::uint64_t recordsADay) : m_nRecordsADay(recordsADay)
    {
        for (const ReportLineCounts& line : ReportLines())
        {
            const std::wstring_view extension = KindOfReportLine(line.line).extension;
            const BenchFile file(extension, m_nRecordsADay);
            for (std::uint32_t back = 0; back < Days; ++back)
            {
                m_paths.push_back(m_folder.File(DayName(back, extension)));
                std::filesystem::copy_file(file.Path(), m_paths.back());
                m_nSize += file.Size();
            }
        }
    }

    void Scan() const
    {
        std::uint64_t lines = 0;
        for (const std::wstring& path : m_paths)
        {
            lines += ScanFile(path).lines;
        }
        Require(lines == m_paths.size() * m_nRecordsADay, "the scan missed lines");
    }

    void Count() const
    {
        CReportFolder files(Folder());
        CountIn(files);
    }

    // The most memory that this program had meanwhile, in megabytes.
    double MemoryOfCount() const
    {
        WeighedFolder files(Folder());
        CountIn(files);
        return files.MostMegabytes();
    }

    double Megabytes() const { return static_cast<double>(m_nSize) / Megabyte; }

private:
    std::wstring Folder() const { return m_folder.Path().wstring() + L"\\"; }

    void CountIn(CReportFiles& files) const
    {
        const ReportCounts counts = CReportCollector(files, Days, Intervals).Collect();
        Require(counts.m_nVirusTotal == Days * m_nRecordsADay && counts.m_nWebTotal == Days * m_nRecordsADay,
                "the report missed records");
    }

    const std::uint64_t m_nRecordsADay;
    const TemporaryFolder m_folder;
    std::vector<std::wstring> m_paths;
    std::uint64_t m_nSize = 0;
};

} // namespace

Figures BenchReport()
{
    const double memoryOfFew = Month(FewRecordsADay).MemoryOfCount();
    const Month month(RecordsADay);
    const double memory = month.MemoryOfCount();
    const std::vector<double> times = MedianTimes({{[&] { month.Scan(); }}, {[&] { month.Count(); }}});
    const std::string size = std::to_string(static_cast<int>(month.Megabytes())) + " MB";
    const std::string name = "report: " + std::to_string(Days) + " days of five kinds with " +
                             std::to_string(RecordsADay) + " records each, " + size;
    return {{name, times[1], "ms", times[0], Budget},
            {"report: memory beside that for a tenth of the " + size, memory, "MB", memoryOfFew, MemoryBudget}};
}
