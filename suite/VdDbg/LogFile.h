#pragma once

#include "suite/VdDbg/LogName.h"
#include "suite/common/KernelHandle.h"

#include <cstdint>
#include <mutex>
#include <optional>
#include <string_view>

namespace VdDbg
{

// The file of a log, written by any number of threads, objects and processes at once: a line is never torn, mixed or
// lost. A line of a later day than the one that was written last, and a line that finds the size limit reached, goes to
// a new file (OldFiles.h).
//
// How that is agreed upon: each line is written under a lock on a range of the file itself, so that it holds between
// processes and ends with them. The file's time of the last write is that of its last line. Both conditions are thus
// facts of the file: whoever sees one of them fulfilled looks, still under the lock, whether the file is the current
// one. If so, he retires it; if not, somebody else did. Then he opens the current one.
//
// Results are system error codes, 0 on success.
class LogFile
{
public:
    static constexpr std::uint64_t DefaultLimit = 10 * 1024 * 1024;

    // With `robust` each line is on the disk when its call returns. No file is touched before Open or Append.
    LogFile(LogName name, bool robust, std::uint64_t limit = DefaultLimit);

    // Opens the file, and makes it and its folder when they are missing; nothing when it is open. Append does so, too.
    DWORD Open();

    // Appends these bytes, which end with a line end, as one. `time` is local; ERROR_INVALID_PARAMETER when it is none.
    // While a reader holds a file so that it cannot be renamed, lines go on into the file that was to be retired.
    DWORD Append(const SYSTEMTIME& time, std::string_view line);

private:
    struct Line;
    struct State;

    DWORD OpenCurrent();
    std::optional<DWORD> AppendHere(const Line& line);
    std::optional<State> ReadState() const;
    bool IsComplete(const State& state, const Line& line) const;
    bool IsCurrent() const;
    DWORD Write(const State& state, const Line& line);

    const LogName m_name;
    const bool m_bRobust;
    const std::uint64_t m_nLimit;
    std::mutex m_mutex; // guards the handle: a wait for the lock on the file would block all other calls with it
    Suite::KernelHandle m_file;
};

} // namespace VdDbg
