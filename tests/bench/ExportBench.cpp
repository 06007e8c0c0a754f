// Exporting a log, beside WriteFile of the bytes that come out, in blocks of the same size.

#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "platform/dialog/UniqueHandle.h"
#include "tests/bench/Bench.h"
#include "tests/bench/BenchFile.h"
#include "tests/bench/Timing.h"
#include "tests/support/TemporaryFolder.h"

#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <string>

namespace
{

constexpr double Budget = 4;
constexpr double MemoryBudget = 1; // megabytes that the export may take beyond the records, whatever their number
constexpr double Megabyte = 1024.0 * 1024.0;
constexpr std::size_t BlockSize = 128 * 1024; // bytes

void Write(const std::wstring& path, const std::string& bytes)
{
    const UniqueFile file(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    Require(static_cast<bool>(file), "the file of the bench cannot be made");
    for (std::size_t start = 0; start < bytes.size(); start += BlockSize)
    {
        const auto size = static_cast<DWORD>(std::min(BlockSize, bytes.size() - start));
        DWORD written = 0;
        Require(WriteFile(file.get(), bytes.data() + start, size, &written, nullptr) && written == size,
                "the file of the bench cannot be written");
    }
}

void Export(CZPTLogVir& log, const std::wstring& path)
{
    std::uint32_t error = 0;
    Require(log.ExportLog(path, LogTypeVirus, L"01/01/2026", L"192.0.2.1", &error), "the log cannot be exported");
}

// The most memory that the process has had at one time.
double MostMemory()
{
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<double>(std::max(counters.PeakPagefileUsage, counters.PagefileUsage));
}

} // namespace

Figures BenchExport()
{
    const BenchFile file(L"VLG");
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"export.csv");
    CZPTLogVir log;
    log.m_bUseDBMgr = false;
    Require(log.ReadLogW(file.Path()) && log.GetLogCount() == BenchFile::Records, "the log missed records");
    const double before = MostMemory();
    Export(log, path);
    const double taken = MostMemory() - before;
    const std::string bytes = ReadBytes(path);
    const std::vector<double> times = MedianTimes({
        {[&] { Write(path, bytes); }, [&] { DeleteFileW(path.c_str()); }},
        {[&] { Export(log, path); }, [&] { DeleteFileW(path.c_str()); }},
    });
    return {
        {"export: a million virus records", times[1], "ms", times[0], Budget},
        {"export: memory beyond the records", taken / Megabyte, "MB", MemoryBudget, 1},
    };
}
