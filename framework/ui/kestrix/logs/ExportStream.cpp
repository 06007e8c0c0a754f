#include "framework/ui/kestrix/logs/ExportStream.h"

#include <algorithm>

#include <emmintrin.h>

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
    m_arrBlock.resize(BlockSize);
    m_arrBlock[0] = L'\xFEFF';
    m_nUsed = 1;
    return static_cast<bool>(m_hFile);
}

bool ExportStream::Write(std::wstring_view text)
{
    while (!text.empty())
    {
        text.remove_prefix(CopyToLineFeed(text));
        if (text.starts_with(L'\n'))
        {
            if (!Put(L'\r') || !Put(L'\n'))
            {
                return false;
            }
            text.remove_prefix(1);
        }
        else if (!text.empty() && !Flush())
        {
            return false;
        }
    }
    return true;
}

bool ExportStream::WriteLabel(std::wstring_view text, wchar_t end)
{
    return Put(L'"') && Write(text) && Put(L'"') && (end != L'\n' || Put(L'\r')) && Put(end);
}

bool ExportStream::Flush()
{
    const auto bytes = static_cast<DWORD>(m_nUsed * sizeof(wchar_t));
    DWORD written = 0;
    m_nUsed = 0;
    return WriteFile(m_hFile.get(), m_arrBlock.data(), bytes, &written, nullptr) && written == bytes;
}

bool ExportStream::Delete()
{
    Close();
    return DeleteFileW(m_strPath.c_str());
}

// Takes what stands before the first line feed, as far as there is room, and gives the number of characters. One pass
// over eight at a time both looks and copies: fields are short and many.
std::size_t ExportStream::CopyToLineFeed(std::wstring_view text)
{
    constexpr std::ptrdiff_t step = sizeof(__m128i) / sizeof(wchar_t);
    const __m128i feed = _mm_set1_epi16(L'\n');
    const wchar_t* source = text.data();
    const wchar_t* const end = source + std::min(text.size(), BlockSize - m_nUsed);
    wchar_t* target = m_arrBlock.data() + m_nUsed;
    for (; end - source >= step; source += step, target += step)
    {
        const __m128i eight = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source));
        if (_mm_movemask_epi8(_mm_cmpeq_epi16(eight, feed)) != 0)
        {
            break;
        }
        _mm_storeu_si128(reinterpret_cast<__m128i*>(target), eight);
    }
    while (source != end && *source != L'\n')
    {
        *target++ = *source++;
    }
    const auto count = static_cast<std::size_t>(source - text.data());
    m_nUsed += count;
    return count;
}

bool ExportStream::Put(wchar_t character)
{
    if (m_nUsed == BlockSize && !Flush())
    {
        return false;
    }
    m_arrBlock[m_nUsed++] = character;
    return true;
}
