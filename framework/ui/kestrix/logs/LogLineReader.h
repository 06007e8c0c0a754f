#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

// Cuts the text of a daily log file into lines, wherever its bytes come from.
//
// A line is what readers of these files have always taken for one, a buffer of 2,046 characters at a time:
// - a line of more than 2,046 characters with its line end is passed over with all its pieces;
// - a last line without a line feed is passed over;
// - a NUL ends the text of a line early. The line then lacks its line feed, so it counts as broken, and like every
//   broken line takes the next piece that ends in a line feed with it. A piece that begins with a NUL is nothing.
// - the text ends at its last carriage return; without one the line feed stays in it;
// - an empty line is passed over.
class LogLineReader
{
public:
    // The longest piece of text that is taken for a line, in characters.
    static constexpr std::size_t LongestLine = 2046;

    LogLineReader() = default;
    LogLineReader(const LogLineReader&) = delete;
    LogLineReader& operator=(const LogLineReader&) = delete;
    virtual ~LogLineReader() = default;

    // The next line, valid until the next call; false at the end of the text or when it cannot be read further.
    bool NextLine(std::wstring_view& line);

protected:
    // Forgets what was read before; false when no buffer can be had.
    bool Begin();

    // A text up to and with a line feed, LongestLine characters at the most, and what of it stands before its first
    // NUL.
    struct Piece
    {
        std::wstring_view whole;
        std::wstring_view text;
    };

    // The next piece, empty at the end of the text.
    Piece NextPiece();

private:
    // Reads the next bytes, as many as are there and have room; returns their number, 0 when there are no more.
    virtual std::size_t ReadBytes(char* to, std::size_t room) = 0;

    bool ReadBlock();

    std::vector<wchar_t> m_arrBuffer;
    std::size_t m_nBegin = 0;    // first character that was not given yet
    std::size_t m_nEnd = 0;      // after the last whole character read
    std::size_t m_nOddBytes = 0; // 1 when half a character stands after m_nEnd
    bool m_bLineStartOk = true;
};
