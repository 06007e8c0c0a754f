// Interface of VdDbg64.dll, the suite's trace library: what the library and its users share.
// The settings record is a binary interface of the 64-bit library, byte for byte; all of it is zero where nothing is
// set.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>

struct DebugLogConfig
{
    bool serviceSession; // the process runs in the session of the services
    bool robust;         // each line is on the disk before the call returns
    bool debugger;       // each line goes to the debugger output as well
    std::uint8_t zero;
    SYSTEMTIME startTime; // local time at which the settings were read
    std::uint32_t logProcess;
    std::uint32_t logUnitType;
    wchar_t moduleName[32]; // texts are terminated
    wchar_t logFolder[260];
    wchar_t logPrefix[256];
    wchar_t logFile[256];
    wchar_t logExtension[256];
};

static_assert(offsetof(DebugLogConfig, serviceSession) == 0);
static_assert(offsetof(DebugLogConfig, robust) == 1);
static_assert(offsetof(DebugLogConfig, debugger) == 2);
static_assert(offsetof(DebugLogConfig, zero) == 3);
static_assert(offsetof(DebugLogConfig, startTime) == 4);
static_assert(offsetof(DebugLogConfig, logProcess) == 20);
static_assert(offsetof(DebugLogConfig, logUnitType) == 24);
static_assert(offsetof(DebugLogConfig, moduleName) == 28);
static_assert(offsetof(DebugLogConfig, logFolder) == 92);
static_assert(offsetof(DebugLogConfig, logPrefix) == 612);
static_assert(offsetof(DebugLogConfig, logFile) == 1124);
static_assert(offsetof(DebugLogConfig, logExtension) == 1636);
static_assert(sizeof(DebugLogConfig) == 2148);

// What the library exports, by these names. The handle is opaque; results are 0 on success.
extern "C"
{
    // Opens the log that the settings describe; *handle becomes the handle of all further calls.
    using VdDbgInitializeFunction = std::uint32_t(void** handle, const DebugLogConfig* config);

    // Closes the log.
    using VdDbgUninitializeFunction = std::uint32_t(void* handle);

    // Writes one finished line, which carries its line end, at the time of the call that it came from.
    using VdDbgTraceFunction = std::uint32_t(void* handle, const SYSTEMTIME* time, const wchar_t* line);
}
