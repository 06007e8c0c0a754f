#include "framework/ui/kestrix/logs/LogFileReader.h"

#include <algorithm>

namespace
{

constexpr LONGLONG MarkSize = 2; // the byte order mark

} // namespace

bool LogFileReader::Open(const std::wstring& path, std::uint32_t limit)
{
    m_hFile.reset(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                              nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!Begin() || !m_hFile || !Seek(limit & ~1U))
    {
        return false;
    }
    if (limit != 0)
    {
        NextPiece();
    }
    return true;
}

bool LogFileReader::Seek(std::uint32_t limit) const
{
    LARGE_INTEGER size{};
    LARGE_INTEGER start{};
    start.QuadPart = MarkSize;
    if (limit != 0 && GetFileSizeEx(m_hFile.get(), &size))
    {
        start.QuadPart = std::max(MarkSize, size.QuadPart - static_cast<LONGLONG>(limit));
    }
    return SetFilePointerEx(m_hFile.get(), start, nullptr, FILE_BEGIN);
}

std::size_t LogFileReader::ReadBytes(char* to, std::size_t room)
{
    DWORD read = 0;
    return ReadFile(m_hFile.get(), to, static_cast<DWORD>(room), &read, nullptr) ? read : 0;
}
