#include "suite/framework/Journal.h"

#include "suite/common/KernelHandle.h"
#include "suite/framework/Trace.h"

#include <array>
#include <cstdio>
#include <utility>

namespace Framework
{

namespace
{

std::string Now()
{
    SYSTEMTIME now{};
    GetLocalTime(&now);
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%04u-%02u-%02u %02u:%02u:%02u", now.wYear, now.wMonth, now.wDay, now.wHour,
                  now.wMinute, now.wSecond);
    return text.data();
}

// Empty, with the reason in GetLastError, when it cannot be opened. What is written goes to its end.
Suite::KernelHandle OpenForLines(const std::filesystem::path& path)
{
    return Suite::OpenShared(path.c_str(), FILE_APPEND_DATA | FILE_READ_ATTRIBUTES | SYNCHRONIZE, OPEN_ALWAYS);
}

bool HasReached(HANDLE file, std::uint64_t limit)
{
    LARGE_INTEGER size{};
    return GetFileSizeEx(file, &size) && static_cast<std::uint64_t>(size.QuadPart) >= limit;
}

bool WriteAll(HANDLE file, const std::string& bytes)
{
    DWORD written = 0;
    return WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size();
}

} // namespace

Journal::Journal(std::filesystem::path folder, std::uint64_t limit) : m_folder(std::move(folder)), m_nLimit(limit) {}

void Journal::Write(const std::string& text) const
{
    Trace(text);
    const std::filesystem::path path = m_folder / FileName;
    Suite::KernelHandle file = OpenForLines(path);
    if (file && HasReached(file.get(), m_nLimit))
    {
        // A reader may keep it from being renamed; then it grows.
        file.reset();
        MoveFileExW(path.c_str(), (m_folder / OldName).c_str(), MOVEFILE_REPLACE_EXISTING);
        file = OpenForLines(path);
    }
    if (!file || !WriteAll(file.get(), Now() + " " + text + "\r\n"))
    {
        Trace("The journal cannot be written; the line above is missing there.");
    }
}

} // namespace Framework
