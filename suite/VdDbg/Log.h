#pragma once

#include "common/VdDbg.h"
#include "suite/VdDbg/LogFile.h"

namespace VdDbg
{

// A log as its settings describe it. They all have their effect here but for logProcess and logUnitType, which mean
// nothing to this library, and serviceSession and startTime, which only tell where the settings come from.
class Log
{
public:
    explicit Log(const DebugLogConfig& config);

    // See LogFile::Open.
    DWORD Open();

    // Appends the line to the file, as UTF-8, and sends it to the debugger output when the settings ask for that, be
    // the file written or not. Nothing is done for an empty line. Returns what LogFile::Append returns.
    DWORD Write(const SYSTEMTIME& time, const wchar_t* line);

private:
    LogFile m_file;
    bool m_bDebugger;
};

} // namespace VdDbg
