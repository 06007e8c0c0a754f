// A trace call while tracing is off, as it is for all benches, beside the two short locks that it is said to take.

#include "common/VdCommon/VdComn_DebugLog.h"
#include "tests/bench/Bench.h"
#include "tests/bench/Timing.h"

#include <string>

namespace
{

constexpr double Budget = 1.5;
constexpr int Calls = 5'000'000;

} // namespace

Figures BenchTrace()
{
    CRITICAL_SECTION section;
    InitializeCriticalSection(&section);
    const std::wstring text = L"an argument that must not be looked at";
    const std::vector<double> times = MedianTimes({
        {[&]
         {
             for (int i = 0; i < Calls; ++i)
             {
                 VD_TRACE(Flow, L"[Enter] %s(%d)...", text, i);
             }
         }},
        {[&]
         {
             for (int i = 0; i < 2 * Calls; ++i)
             {
                 EnterCriticalSection(&section);
                 LeaveCriticalSection(&section);
             }
         }},
    });
    DeleteCriticalSection(&section);
    return {{"trace: five million calls while off", times[0], "ms", times[1], Budget}};
}
