// A trace library that keeps what it is told. One source, compiled once per form: REFUSES, GIVES_NO_HANDLE, INCOMPLETE.

#include "tests/support/TraceLibraryDouble.h"

#include <mutex>

namespace
{

TraceCalls calls;
std::mutex lock;

} // namespace

extern "C"
{

    __declspec(dllexport) TraceCalls& TraceCallsOfThis()
    {
        return calls;
    }

    __declspec(dllexport) TraceCalls& FreshTraceCalls()
    {
        calls = {}; // here, since each module has a heap of its own
        return calls;
    }

    __declspec(dllexport) std::uint32_t VdDbgInitialize(void** handle, const DebugLogConfig* config)
    {
        calls.configs.push_back(*config);
#ifdef REFUSES
        *handle = &calls;
        return 5;
#elif defined(GIVES_NO_HANDLE)
        *handle = nullptr;
        return 0;
#else
        *handle = &calls;
        return 0;
#endif
    }

    __declspec(dllexport) std::uint32_t VdDbgUninitialize(void* handle)
    {
        calls.closed.push_back(handle);
        return 0;
    }

#ifndef INCOMPLETE
    __declspec(dllexport) std::uint32_t VdDbgTrace(void* handle, const SYSTEMTIME* time, const wchar_t* line)
    {
        const std::scoped_lock guard(lock);
        calls.lines.push_back(handle == &calls ? line : L"a handle of nobody");
        calls.times.push_back(*time);
        return calls.traceResult;
    }
#endif
}
