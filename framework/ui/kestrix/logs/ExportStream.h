#pragma once

#include "platform/dialog/UniqueHandle.h"

#include <string>
#include <string_view>
#include <vector>

// Writes a UTF-16 text file with byte order mark. Every line feed comes out as carriage return and line feed.
// Text is gathered in a block, so that a full disk may show only at a later write or at Flush.
class ExportStream
{
public:
    // Makes the file, in place of one that stands there; false when that is not possible, and for what is no file: a
    // device or a folder. A path of any length will do. Nobody else can open the file until Close.
    bool Open(const std::wstring& path);

    // False when the text could not be written.
    bool Write(std::wstring_view text);

    // Writes the text in double quotes, with what stands behind it: a tab or a line feed.
    bool WriteLabel(std::wstring_view text, wchar_t end);

    // Writes what is still in memory to the file; false when that failed.
    bool Flush();

    // Closes the file without writing what is still in memory.
    void Close() { m_hFile.reset(); }

    // Closes and deletes the file that Open made; false when it stays.
    bool Delete();

private:
    static constexpr std::size_t BlockSize = 64 * 1024; // characters

    std::size_t CopyToLineFeed(std::wstring_view text);
    bool Put(wchar_t character);

    UniqueFile m_hFile;
    std::wstring m_strPath; // as the system takes it
    std::vector<wchar_t> m_arrBlock;
    std::size_t m_nUsed = 0; // characters of the block
};
