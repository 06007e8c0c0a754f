#include "framework/ui/kestrix/logs/ExportStream.h"

#include "framework/ui/kestrix/logs/FindCharacter.h"

#include <algorithm>

namespace
{

std::wstring FullPath(const std::wstring& path)
{
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

// The path with the prefix that lifts the system's limit of length; one within the limit stays as it is.
std::wstring SystemPath(const std::wstring& path)
{
    if (path.size() < MAX_PATH || path.starts_with(L"\\\\?\\"))
    {
        return path;
    }
    const std::wstring full = FullPath(path);
    return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

} // namespace

bool ExportStream::Open(const std::wstring& path)
{
    m_strPath = SystemPath(path);
    m_hFile.reset(
        CreateFileW(m_strPath.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (m_hFile && GetFileType(m_hFile.get()) != FILE_TYPE_DISK)
    {
        m_hFile.reset();
    }
    m_arrBlock.clear();
    m_arrBlock.reserve(BlockSize);
    m_arrBlock.push_back(L'\xFEFF');
    return static_cast<bool>(m_hFile);
}

bool ExportStream::Write(std::wstring_view text)
{
    for (;;)
    {
        const wchar_t* const end = text.data() + text.size();
        const auto length = static_cast<std::size_t>(FindCharacter(text.data(), end, L'\n') - text.data());
        if (!Append(text.substr(0, length)))
        {
            return false;
        }
        if (length == text.size())
        {
            return true;
        }
        if (!Append(L"\r\n"))
        {
            return false;
        }
        text.remove_prefix(length + 1);
    }
}

bool ExportStream::WriteLabel(std::wstring_view text, wchar_t end)
{
    return Append(L"\"") && Write(text) && Append(end == L'\n' ? L"\"\r\n" : L"\"\t");
}

bool ExportStream::Flush()
{
    const auto bytes = static_cast<DWORD>(m_arrBlock.size() * sizeof(wchar_t));
    DWORD written = 0;
    const bool done = WriteFile(m_hFile.get(), m_arrBlock.data(), bytes, &written, nullptr) && written == bytes;
    m_arrBlock.clear();
    return done;
}

bool ExportStream::Delete()
{
    Close();
    return DeleteFileW(m_strPath.c_str());
}

bool ExportStream::Append(std::wstring_view text)
{
    while (!text.empty())
    {
        if (m_arrBlock.size() == BlockSize && !Flush())
        {
            return false;
        }
        const std::wstring_view part = text.substr(0, BlockSize - m_arrBlock.size());
        m_arrBlock.insert(m_arrBlock.end(), part.begin(), part.end());
        text.remove_prefix(part.size());
    }
    return true;
}
