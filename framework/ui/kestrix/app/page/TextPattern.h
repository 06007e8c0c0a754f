#pragma once

#include <string>
#include <string_view>
#include <vector>

// A text that others are searched for, made ready once for many of them.
//
// Where case does not count, two characters are the same when the system's table of capital letters says so, one by
// one, as CompareStringOrdinal compares; so the search is the same in every language. A whole word has no letter,
// digit, underline or half of a surrogate pair beside its own first or last one.
class TextPattern
{
public:
    TextPattern(std::wstring_view text, bool matchCase, bool wholeWords);

    // No text has the empty pattern.
    bool IsIn(std::wstring_view text) const;

private:
    wchar_t Folded(wchar_t c) const { return m_arrFolded.empty() ? c : m_arrFolded[c]; }

    void SetBeginning();
    const wchar_t* NextBeginning(const wchar_t* place, const wchar_t* end) const;
    bool IsAt(const wchar_t* place) const;
    bool IsWordAt(std::wstring_view text, const wchar_t* place) const;

    const bool m_bWholeWords;
    std::vector<wchar_t> m_arrFolded; // every character as a capital letter; empty: case counts
    std::wstring m_strPattern;        // folded
    std::wstring m_strBeginnings;     // the characters that are the same as the first one
};
