#include "framework/ui/kestrix/logs/ExportStream.h"

bool ExportStream::Open(const std::wstring& path)
{
    m_hFile.reset(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr));
    m_arrBlock.clear();
    m_arrBlock.reserve(BlockSize + 1);
    m_arrBlock.push_back(L'\xFEFF');
    return static_cast<bool>(m_hFile);
}

bool ExportStream::Write(std::wstring_view text)
{
    for (const wchar_t character : text)
    {
        if (m_arrBlock.size() + 1 >= BlockSize && !Flush())
        {
            return false;
        }
        if (character == L'\n')
        {
            m_arrBlock.push_back(L'\r');
        }
        m_arrBlock.push_back(character);
    }
    return true;
}

bool ExportStream::WriteLabel(std::wstring_view text, wchar_t end)
{
    return Write(L"\"") && Write(text) && Write(L"\"") && Write({&end, 1});
}

bool ExportStream::Flush()
{
    const auto bytes = static_cast<DWORD>(m_arrBlock.size() * sizeof(wchar_t));
    DWORD written = 0;
    const bool done = WriteFile(m_hFile.get(), m_arrBlock.data(), bytes, &written, nullptr) && written == bytes;
    m_arrBlock.clear();
    return done;
}
