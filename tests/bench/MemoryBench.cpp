// The memory that the records of a daily file take, beside the size of the file.

#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "tests/bench/Bench.h"
#include "tests/bench/BenchFile.h"

#include <windows.h>

#include <psapi.h>

#include <stdexcept>

namespace
{

constexpr double Budget = 3;
constexpr double Megabyte = 1024.0 * 1024.0;

// Under Wine this is the private memory that was touched, on Windows all that was committed; the records' own share of
// the latter is at most a third more.
double PrivateMemory()
{
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<double>(counters.PagefileUsage);
}

} // namespace

Figures BenchMemory()
{
    const BenchFile file;
    const double before = PrivateMemory();
    CZPTLogVir log;
    log.m_bUseDBMgr = false;
    if (!log.ReadLogW(file.Path()) || log.GetLogCount() != BenchFile::Records)
    {
        throw std::runtime_error("the log missed records");
    }
    const double taken = PrivateMemory() - before;
    return {{"memory: a million virus records", taken / Megabyte, "MB", static_cast<double>(file.Size()) / Megabyte,
             Budget}};
}
