// Counting the events of a month for the report, beside a bare scan of the same files.

#include "framework/ui/kestrix/report/ReportCollector.h"
#include "tests/bench/BareScan.h"
#include "tests/bench/Bench.h"
#include "tests/bench/BenchFile.h"
#include "tests/bench/Timing.h"
#include "tests/support/TemporaryFolder.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace
{

constexpr double Budget = 3;
constexpr std::uint32_t Days = 30;
constexpr std::uint32_t Intervals = 10;
constexpr std::uint64_t RecordsADay = 5'000; // of each kind: some 200 MB of files
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

// A folder with a month of files of every kind that the report counts, each day of a kind the same.
class Month
{
public:
    Month()
    {
        for (const ReportLineCounts& line : ReportLines())
        {
            const std::wstring_view extension = KindOfReportLine(line.line).extension;
            const BenchFile file(extension, RecordsADay);
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
        Require(lines == m_paths.size() * RecordsADay, "the scan missed lines");
    }

    void Count() const
    {
        CReportFolder files(m_folder.Path().wstring() + L"\\");
        const ReportCounts counts = CReportCollector(files, Days, Intervals).Collect();
        Require(counts.m_nVirusTotal == Days * RecordsADay && counts.m_nWebTotal == Days * RecordsADay,
                "the report missed records");
    }

    double Megabytes() const { return static_cast<double>(m_nSize) / Megabyte; }

private:
    const TemporaryFolder m_folder;
    std::vector<std::wstring> m_paths;
    std::uint64_t m_nSize = 0;
};

} // namespace

Figures BenchReport()
{
    const Month month;
    const std::vector<double> times = MedianTimes({{[&] { month.Scan(); }}, {[&] { month.Count(); }}});
    const std::string name = "report: " + std::to_string(Days) + " days of five kinds with " +
                             std::to_string(RecordsADay) + " records each, " +
                             std::to_string(static_cast<int>(month.Megabytes())) + " MB";
    return {{name, times[1], "ms", times[0], Budget}};
}
