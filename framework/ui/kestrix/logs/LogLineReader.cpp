#include "framework/ui/kestrix/logs/LogLineReader.h"

#include "framework/ui/kestrix/logs/FindCharacter.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace
{

// What is read at once, in bytes: large enough that the calls cost nothing beside the parsing.
constexpr std::size_t BlockSize = 256 * 1024;

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
    for (Piece piece = NextPiece(); !piece.whole.empty(); piece = NextPiece())
    {
        std::wstring_view text = piece.text;
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

LogLineReader::Piece LogLineReader::NextPiece()
{
    for (;;)
    {
        const std::size_t available = std::min(m_nEnd - m_nBegin, LongestLine);
        const wchar_t* const begin = m_arrBuffer.data() + m_nBegin;
        const wchar_t* const end = begin + available;
        const wchar_t* const stop = FindEither(begin, end, L'\n', L'\0');
        const bool hasNul = stop != end && *stop == L'\0';
        const wchar_t* const feed = hasNul ? FindCharacter(stop, end, L'\n') : stop;
        if (feed == end && available < LongestLine && ReadBlock())
        {
            continue;
        }
        // Only now: what is left of the text has moved to the front when nothing more came.
        const std::size_t length = feed == end ? available : static_cast<std::size_t>(feed - begin) + 1;
        const std::wstring_view whole(m_arrBuffer.data() + m_nBegin, length);
        m_nBegin += length;
        return {whole, hasNul ? whole.substr(0, static_cast<std::size_t>(stop - begin)) : whole};
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
