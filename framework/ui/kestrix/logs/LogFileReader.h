#pragma once

#include "platform/dialog/UniqueHandle.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Reads a daily log file line by line: UTF-16 text after a two-byte mark that is not looked at.
//
// A line is what readers of these files have always taken for one, a buffer of 2,046 characters at a time:
// - a line of more than 2,046 characters with its line end is passed over with all its pieces;
// - a last line without a line feed is passed over;
// - a NUL ends the text of a line early. The line then lacks its line feed, so it counts as broken, and like every
//   broken line takes the next piece that ends in a line feed with it. A piece that begins with a NUL is nothing.
// - the text ends at its last carriage return; without one the line feed stays in it;
// - an empty line is passed over.
class LogFileReader
{
public:
    // The longest piece of text that is taken for a line, in characters.
    static constexpr std::size_t LongestLine = 2046;

    // Opens the file after its mark, or, with a limit that is not 0, that many bytes before its end, after one
    // discarded line. False when it cannot be opened or positioned, or when no buffer can be had.
    // Others may write, move or delete the file meanwhile.
    bool Open(const std::wstring& path, std::uint32_t limit = 0);

    // The next line, valid until the next call; false at the end of the file or when it cannot be read further.
    bool NextLine(std::wstring_view& line);

private:
    // What is read at once, in bytes: large enough that the calls cost nothing beside the parsing.
    static constexpr std::size_t BlockSize = 256 * 1024;

    bool Seek(std::uint32_t limit) const;
    std::wstring_view NextPiece();
    bool ReadBlock();

    UniqueFile m_hFile;
    std::vector<wchar_t> m_arrBuffer;
    std::size_t m_nBegin = 0;    // first character that was not given yet
    std::size_t m_nEnd = 0;      // after the last whole character read
    std::size_t m_nOddBytes = 0; // 1 when half a character stands after m_nEnd
    bool m_bLineStartOk = true;
};
