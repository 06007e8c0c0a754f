#include "framework/ui/kestrix/logs/LogLineReader.h"

#include "framework/ui/kestrix/logs/FindCharacter.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace
{

// What is read at once, in bytes: large enough that the calls cost nothing beside the parsing.
constexpr std::size_t BlockSize = 256 * 1024;

// Gives the number of characters up to and with the first line feed, 0 when there is none.
std::size_t FindLineFeed(const wchar_t* text, std::size_t length)
{
    const wchar_t* const end = text + length;
    const wchar_t* const found = FindCharacter(text, end, L'\n');
    return found == end ? 0 : static_cast<std::size_t>(found - text) + 1;
}

} // namespace

bool LogLineReader::Begin()
{
    m_nBegin = m_nEnd = m_nOddBytes = 0;
    m_bLineStartOk = true;
    try
    {
        m_arrBuffer.resize((BlockSize + LongestLine * sizeof(wchar_t)) / sizeof(wchar_t));
    }
    catch (const std::bad_alloc&)
    {
        return false;
    }
    return true;
}

bool LogLineReader::NextLine(std::wstring_view& line)
{
    for (std::wstring_view piece = NextPiece(); !piece.empty(); piece = NextPiece())
    {
        const wchar_t* const begin = piece.data();
        std::wstring_view text(begin, FindCharacter(begin, begin + piece.size(), L'\0'));
        if (text.empty())
        {
            continue;
        }
        if (text.back() != L'\n')
        {
            m_bLineStartOk = false;
            continue;
        }
        if (!m_bLineStartOk)
        {
            m_bLineStartOk = true;
            continue;
        }
        text = text.substr(0, text.rfind(L'\r'));
        if (!text.empty())
        {
            line = text;
            return true;
        }
    }
    return false;
}

std::wstring_view LogLineReader::NextPiece()
{
    for (;;)
    {
        const std::size_t available = std::min(m_nEnd - m_nBegin, LongestLine);
        std::size_t length = FindLineFeed(m_arrBuffer.data() + m_nBegin, available);
        if (length == 0)
        {
            if (available < LongestLine && ReadBlock())
            {
                continue;
            }
            length = available;
        }
        // Only now: what is left of the text has moved to the front when nothing more came.
        const std::wstring_view piece(m_arrBuffer.data() + m_nBegin, length);
        m_nBegin += length;
        return piece;
    }
}

// Moves what is left to the front of the buffer and reads after it; false when nothing more came.
bool LogLineReader::ReadBlock()
{
    const std::size_t left = m_nEnd - m_nBegin;
    auto* const bytes = reinterpret_cast<char*>(m_arrBuffer.data());
    const std::size_t leftBytes = left * sizeof(wchar_t) + m_nOddBytes;
    std::memmove(bytes, bytes + m_nBegin * sizeof(wchar_t), leftBytes);

    const std::size_t room = m_arrBuffer.size() * sizeof(wchar_t) - leftBytes;
    const std::size_t read = ReadBytes(bytes + leftBytes, room);
    m_nBegin = 0;
    m_nEnd = (leftBytes + read) / sizeof(wchar_t);
    m_nOddBytes = (leftBytes + read) % sizeof(wchar_t);
    return read != 0;
}
