#pragma once

#include <algorithm>
#include <bit>

#include <emmintrin.h>

// The first character of the text that is one of the two, or its end. Looks at eight characters at a time: a daily file
// is searched for line ends from its first character to its last.
inline const wchar_t* FindEither(const wchar_t* text, const wchar_t* end, wchar_t first, wchar_t second) noexcept
{
    constexpr std::ptrdiff_t step = sizeof(__m128i) / sizeof(wchar_t);
    const __m128i firsts = _mm_set1_epi16(static_cast<short>(first));
    const __m128i seconds = _mm_set1_epi16(static_cast<short>(second));
    for (; end - text >= step; text += step)
    {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
        const __m128i found = _mm_or_si128(_mm_cmpeq_epi16(block, firsts), _mm_cmpeq_epi16(block, seconds));
        const auto bytes = static_cast<unsigned>(_mm_movemask_epi8(found));
        if (bytes != 0)
        {
            return text + static_cast<std::size_t>(std::countr_zero(bytes)) / sizeof(wchar_t);
        }
    }
    return std::find_if(text, end, [first, second](wchar_t c) { return c == first || c == second; });
}

// The first such character of the text, or its end.
inline const wchar_t* FindCharacter(const wchar_t* text, const wchar_t* end, wchar_t character) noexcept
{
    return FindEither(text, end, character, character);
}

// Calls visit with the place of each such character of the text, from the first to the last. Sixteen characters are
// looked at together, so that the ends of short fields cost little more than those of long ones.
template <class Visit>
void ForEachCharacter(const wchar_t* text, const wchar_t* end, wchar_t character, Visit visit)
{
    constexpr std::ptrdiff_t step = sizeof(__m128i);
    const __m128i wanted = _mm_set1_epi16(static_cast<short>(character));
    for (; end - text >= step; text += step)
    {
        const auto* const halves = reinterpret_cast<const __m128i*>(text);
        const __m128i first = _mm_cmpeq_epi16(_mm_loadu_si128(halves), wanted);
        const __m128i second = _mm_cmpeq_epi16(_mm_loadu_si128(halves + 1), wanted);
        auto found = static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(first, second))); // a bit for each
        for (; found != 0; found &= found - 1)
        {
            visit(text + std::countr_zero(found));
        }
    }
    for (; text != end; ++text)
    {
        if (*text == character)
        {
            visit(text);
        }
    }
}
