#include "framework/ui/kestrix/app/page/TextPattern.h"

#include "framework/ui/kestrix/logs/FindCharacter.h"

#include <windows.h>

#include <algorithm>
#include <limits>
#include <numeric>

namespace
{

constexpr std::size_t Characters = std::size_t{std::numeric_limits<wchar_t>::max()} + 1;

std::vector<wchar_t> CapitalLetters()
{
    std::vector<wchar_t> letters(Characters);
    std::iota(letters.begin(), letters.end(), L'\0');
    ::CharUpperBuffW(letters.data(), static_cast<DWORD>(letters.size()));
    return letters;
}

bool IsOfWord(wchar_t c)
{
    return c == L'_' || IS_HIGH_SURROGATE(c) || IS_LOW_SURROGATE(c) || ::IsCharAlphaNumericW(c);
}

} // namespace

TextPattern::TextPattern(std::wstring_view text, bool matchCase, bool wholeWords)
    : m_bWholeWords(wholeWords), m_strPattern(text)
{
    if (!matchCase)
    {
        m_arrFolded = CapitalLetters();
    }
    for (wchar_t& c : m_strPattern)
    {
        c = Folded(c);
    }
    SetBeginning();
}

void TextPattern::SetBeginning()
{
    for (std::size_t c = 0; !m_strPattern.empty() && c < Characters; ++c)
    {
        if (Folded(static_cast<wchar_t>(c)) == m_strPattern.front())
        {
            m_strBeginnings += static_cast<wchar_t>(c);
        }
    }
}

bool TextPattern::IsIn(std::wstring_view text) const
{
    if (m_strPattern.empty() || text.size() < m_strPattern.size())
    {
        return false;
    }
    const wchar_t* const end = text.data() + (text.size() - m_strPattern.size() + 1);
    for (const wchar_t* place = NextBeginning(text.data(), end); place != end; place = NextBeginning(place + 1, end))
    {
        if (IsAt(place) && (!m_bWholeWords || IsWordAt(text, place)))
        {
            return true;
        }
    }
    return false;
}

// Most letters have two forms at most, which are looked for eight characters at a time.
const wchar_t* TextPattern::NextBeginning(const wchar_t* place, const wchar_t* end) const
{
    if (m_strBeginnings.size() <= 2)
    {
        return FindEither(place, end, m_strBeginnings.front(), m_strBeginnings.back());
    }
    return std::find_if(place, end, [this](wchar_t c) { return m_strBeginnings.find(c) != std::wstring::npos; });
}

bool TextPattern::IsAt(const wchar_t* place) const
{
    return std::equal(m_strPattern.begin(), m_strPattern.end(), place,
                      [this](wchar_t wanted, wchar_t c) { return wanted == Folded(c); });
}

bool TextPattern::IsWordAt(std::wstring_view text, const wchar_t* place) const
{
    const wchar_t* const end = place + m_strPattern.size();
    const bool isJoinedBefore = place != text.data() && IsOfWord(place[-1]) && IsOfWord(place[0]);
    const bool isJoinedAfter = end != text.data() + text.size() && IsOfWord(end[-1]) && IsOfWord(end[0]);
    return !isJoinedBefore && !isJoinedAfter;
}
