// The memory that the records of a daily file take, beside the size of the file.

#include "framework/ui/kestrix/app/LogFactory.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "tests/bench/Bench.h"
#include "tests/bench/BenchFile.h"

#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <iterator>
#include <memory>

namespace
{

constexpr double VirusBudget = 1.2;
constexpr double Budget = 3; // of all other kinds
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

Figure MemoryOf(const LogKind& kind)
{
    const BenchFile file(kind.extension);
    const double before = PrivateMemory();
    const std::unique_ptr<CZPTLogBase> log = CreateLog(kind.type);
    log->m_bUseDBMgr = false;
    Require(log->ReadLogW(file.Path()) && log->GetLogCount() == BenchFile::Records, "the log missed records");
    const double taken = PrivateMemory() - before;
    return {"memory: a million " + Narrow(kind.extension) + " records", taken / Megabyte, "MB",
            static_cast<double>(file.Size()) / Megabyte, kind.type == LogTypeVirus ? VirusBudget : Budget};
}

} // namespace

Figures BenchMemory()
{
    Figures figures;
    std::ranges::transform(LogKinds(), std::back_inserter(figures), MemoryOf);
    return figures;
}
