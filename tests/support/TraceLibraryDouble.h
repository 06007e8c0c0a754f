#pragma once

#include "common/VdDbg.h"

#include <string>
#include <vector>

// What a trace library of the tests was told. The library keeps it as long as it is loaded.
struct TraceCalls
{
    std::vector<DebugLogConfig> configs;
    std::vector<void*> closed;
    std::vector<std::wstring> lines;
    std::vector<SYSTEMTIME> times;
    std::uint32_t traceResult = 0; // what the library answers to a line
};

// The library's own exports beside those of the interface: TraceCallsOfThis, and FreshTraceCalls, which forgets them.
using TraceCallsFunction = TraceCalls&();
