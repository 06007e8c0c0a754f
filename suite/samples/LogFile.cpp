#include "suite/samples/LogFile.h"

#include "suite/common/Failure.h"

#include <windows.h>

#include <utility>

namespace Samples
{

namespace
{

static_assert(sizeof(wchar_t) == 2, "the file holds the characters as they lie in memory");

// Characters held back before they are written in one call.
constexpr std::size_t BufferSize = 512 * 1024;

[[noreturn]] void FailToOpen(const std::filesystem::path& path)
{
    const DWORD error = GetLastError();
    throw Suite::Failure(Suite::ExitCode::WorkFailed,
                         "cannot make the file " + Suite::Utf8(path) + " (system error " + std::to_string(error) +
                             "). Check that its folder exists and that you may write there.");
}

[[noreturn]] void FailToWrite(const std::filesystem::path& path)
{
    const DWORD error = GetLastError();
    const bool full = error == ERROR_DISK_FULL || error == ERROR_HANDLE_DISK_FULL;
    const std::string reason = full ? "the disk is full" : "system error " + std::to_string(error);
    throw Suite::Failure(Suite::ExitCode::WorkFailed,
                         "cannot write " + Suite::Utf8(path) + ": " + reason +
                             ". The file is incomplete: free some space or choose another place "
                             "and run the program again.");
}

} // namespace

void LogFile::Closer::operator()(void* handle) const noexcept
{
    CloseHandle(handle);
}

LogFile::LogFile(std::filesystem::path path) : m_path(std::move(path))
{
    HANDLE handle = CreateFileW(m_path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                                FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
    {
        FailToOpen(m_path);
    }
    m_handle.reset(handle);
    m_strBuffer = L'\xFEFF';
}

void LogFile::Write(std::wstring_view line)
{
    m_strBuffer += line;
    m_strBuffer += L"\r\n";
    if (m_strBuffer.size() >= BufferSize)
    {
        Flush();
    }
}

void LogFile::Close()
{
    Flush();
    m_handle.reset();
}

void LogFile::Flush()
{
    const auto bytes = static_cast<DWORD>(m_strBuffer.size() * sizeof(wchar_t));
    DWORD written = 0;
    if (!WriteFile(m_handle.get(), m_strBuffer.data(), bytes, &written, nullptr) || written != bytes)
    {
        FailToWrite(m_path);
    }
    m_strBuffer.clear();
}

} // namespace Samples
