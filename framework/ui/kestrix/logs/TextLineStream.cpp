#include "framework/ui/kestrix/logs/TextLineStream.h"

#include <io.h>

#include <cwchar>

bool TextLineStream::Open(const std::wstring& path, std::uint32_t limit)
{
    m_pFile.reset(_wfopen(path.c_str(), L"rt, ccs=UTF-16LE"));
    return m_pFile != nullptr && (limit == 0 || SkipToLimit(limit));
}

bool TextLineStream::SkipToLimit(std::uint32_t limit)
{
    const long long size = _filelengthi64(_fileno(m_pFile.get()));
    if (limit >= size)
    {
        return size >= 0;
    }
    std::wstring partial;
    return _fseeki64(m_pFile.get(), size - static_cast<long long>(limit), SEEK_SET) == 0 &&
           (ReadLine(partial) || !Failed());
}

bool TextLineStream::ReadLine(std::wstring& line)
{
    line.clear();
    wchar_t piece[1024];
    while (std::fgetws(piece, static_cast<int>(std::size(piece)), m_pFile.get()) != nullptr)
    {
        line += piece;
        if (line.ends_with(L'\n'))
        {
            line.pop_back();
            return true;
        }
    }
    return !line.empty();
}

bool TextLineStream::Failed() const
{
    return std::ferror(m_pFile.get()) != 0;
}
