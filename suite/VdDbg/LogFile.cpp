#include "suite/VdDbg/LogFile.h"

#include "suite/VdDbg/FileLock.h"
#include "suite/VdDbg/Folder.h"
#include "suite/VdDbg/LineTime.h"
#include "suite/VdDbg/OldFiles.h"

#include <utility>

namespace VdDbg
{

namespace
{

// Without FILE_WRITE_DATA the system puts each write at the end. The lock asks for FILE_READ_DATA.
constexpr DWORD AppendAccess =
    FILE_APPEND_DATA | FILE_READ_DATA | FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES | SYNCHRONIZE;

// How often a line looks for its file. Each time another writer retired the one that was found: a few times in a row
// are rare, and this many mean that the system does not tell files apart.
constexpr int MostAttempts = 200;

// The file that a handle means, whatever name it has by now. False when the system does not tell.
bool IsSameFile(HANDLE one, HANDLE other)
{
    BY_HANDLE_FILE_INFORMATION a{};
    BY_HANDLE_FILE_INFORMATION b{};
    return GetFileInformationByHandle(one, &a) && GetFileInformationByHandle(other, &b) &&
           a.dwVolumeSerialNumber == b.dwVolumeSerialNumber && a.nFileIndexHigh == b.nFileIndexHigh &&
           a.nFileIndexLow == b.nFileIndexLow;
}

// Takes back what a full disk took of a line, so that the next line starts where this one did.
void CutBack(HANDLE file, std::uint64_t size)
{
    const Suite::KernelHandle writable = Suite::OwnFile(ReOpenFile(file, GENERIC_WRITE, Suite::ShareAll, 0));
    FILE_END_OF_FILE_INFO end{};
    end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
    SetFileInformationByHandle(writable.get(), FileEndOfFileInfo, &end, sizeof end);
}

} // namespace

// A line on its way to the file.
struct LogFile::Line
{
    std::string_view bytes;
    unsigned day;
    FILETIME stamp;
};

// What a file is before a line is written to it.
struct LogFile::State
{
    std::uint64_t size;
    FILETIME lastWrite;
    bool isDeleted;
};

LogFile::LogFile(LogName name, bool robust, std::uint64_t limit)
    : m_name(std::move(name)), m_bRobust(robust), m_nLimit(limit)
{
}

DWORD LogFile::Open()
{
    const std::lock_guard guard(m_mutex);
    return OpenCurrent();
}

DWORD LogFile::Append(const SYSTEMTIME& time, std::string_view line)
{
    const std::optional<FILETIME> stamp = StampOf(time);
    if (!stamp)
    {
        return ERROR_INVALID_PARAMETER;
    }
    const std::lock_guard guard(m_mutex);
    for (int attempt = 0; attempt < MostAttempts; ++attempt)
    {
        if (const DWORD error = OpenCurrent(); error != ERROR_SUCCESS)
        {
            return error;
        }
        const std::optional<DWORD> result = AppendHere({line, DayOf(time), *stamp});
        if (result == ERROR_SUCCESS)
        {
            return ERROR_SUCCESS;
        }
        // The file is another one now, or, as on a server that went away, its handle is of no more use.
        m_file.reset();
        if (result)
        {
            return *result;
        }
    }
    return ERROR_RETRY;
}

DWORD LogFile::OpenCurrent()
{
    if (m_file)
    {
        return ERROR_SUCCESS;
    }
    const auto open = [this] { return Suite::OpenShared(m_name.Current().c_str(), AppendAccess, OPEN_ALWAYS); };
    m_file = open();
    if (!m_file && GetLastError() == ERROR_PATH_NOT_FOUND && MakeFolder(m_name.Folder()))
    {
        m_file = open();
    }
    return m_file ? ERROR_SUCCESS : GetLastError();
}

// Nothing when the line belongs into the file that has the name now.
std::optional<DWORD> LogFile::AppendHere(const Line& line)
{
    const FileLock lock(m_file.get());
    if (lock.Error() != ERROR_SUCCESS)
    {
        return lock.Error();
    }
    const std::optional<State> state = ReadState();
    if (!state)
    {
        return GetLastError();
    }
    if (IsComplete(*state, line) && (!IsCurrent() || RetireCurrent(m_name)))
    {
        return std::nullopt;
    }
    return Write(*state, line);
}

// Nothing, with the reason in GetLastError, when the system does not tell. GetFileInformationByHandle would do in one
// call, but it asks for the volume as well, which can take longer than all else that is done for a line.
std::optional<LogFile::State> LogFile::ReadState() const
{
    FILE_STANDARD_INFO standard{};
    FILE_BASIC_INFO basic{};
    if (!GetFileInformationByHandleEx(m_file.get(), FileStandardInfo, &standard, sizeof standard) ||
        !GetFileInformationByHandleEx(m_file.get(), FileBasicInfo, &basic, sizeof basic))
    {
        return std::nullopt;
    }
    const FILETIME lastWrite{basic.LastWriteTime.LowPart, static_cast<DWORD>(basic.LastWriteTime.HighPart)};
    return State{static_cast<std::uint64_t>(standard.EndOfFile.QuadPart), lastWrite,
                 standard.DeletePending || standard.NumberOfLinks == 0};
}

bool LogFile::IsComplete(const State& state, const Line& line) const
{
    const bool isFull = state.size >= m_nLimit;
    const bool isOfADayBefore = line.day > LocalDayOf(state.lastWrite);
    return state.isDeleted || (state.size > 0 && (isFull || isOfADayBefore));
}

bool LogFile::IsCurrent() const
{
    const Suite::KernelHandle named = Suite::OpenShared(m_name.Current().c_str(), FILE_READ_ATTRIBUTES, OPEN_EXISTING);
    return named && IsSameFile(m_file.get(), named.get());
}

DWORD LogFile::Write(const State& state, const Line& line)
{
    DWORD written = 0;
    const bool isTaken =
        WriteFile(m_file.get(), line.bytes.data(), static_cast<DWORD>(line.bytes.size()), &written, nullptr);
    const DWORD error = isTaken ? ERROR_SUCCESS : GetLastError();
    if (error != ERROR_SUCCESS || written < line.bytes.size())
    {
        CutBack(m_file.get(), state.size);
        return error != ERROR_SUCCESS ? error : ERROR_DISK_FULL;
    }
    // A line that comes late does not turn the day back.
    const bool isLate = state.size > 0 && CompareFileTime(&state.lastWrite, &line.stamp) > 0;
    SetFileTime(m_file.get(), nullptr, nullptr, isLate ? &state.lastWrite : &line.stamp);
    return m_bRobust && !FlushFileBuffers(m_file.get()) ? GetLastError() : ERROR_SUCCESS;
}

} // namespace VdDbg
