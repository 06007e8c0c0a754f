// A trace call while tracing is off, beside the two short locks that it is said to take.

#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_Storage.h"
#include "tests/bench/Bench.h"
#include "tests/bench/Timing.h"

#include <stdexcept>
#include <string>

namespace
{

constexpr double Budget = 1.5;
constexpr int Calls = 5'000'000;

// A key that is not there means tracing off, so that a call takes both locks and goes.
void SwitchTracingOff()
{
    const auto nowhere = VdCommon::Storage::Key::InRegistry(HKEY_CURRENT_USER, L"Software\\KestrixBench\\Nowhere");
    if (!VdCommon::DebugLog::Instance().Initialize(L"bench", nowhere, L"."))
    {
        throw std::runtime_error("the debug log does not start");
    }
}

} // namespace

Figures BenchTrace()
{
    SwitchTracingOff();
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
    VdCommon::DebugLog::Instance().Uninitialize();
    return {{"trace: five million calls while off", times[0], "ms", times[1], Budget}};
}
