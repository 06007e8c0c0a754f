#pragma once

#include <algorithm>
#include <bit>

#include <emmintrin.h>

// The first such character of the text, or its end. Looks at eight characters at a time: a daily file is searched for
// line ends and field ends from its first character to its last.
inline const wchar_t* FindCharacter(const wchar_t* text, const wchar_t* end, wchar_t character) noexcept
{
    constexpr std::ptrdiff_t step = sizeof(__m128i) / sizeof(wchar_t);
    const __m128i wanted = _mm_set1_epi16(static_cast<short>(character));
    for (; end - text >= step; text += step)
    {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
        const auto bytes = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi16(block, wanted)));
        if (bytes != 0)
        {
            return text + static_cast<std::size_t>(std::countr_zero(bytes)) / sizeof(wchar_t);
        }
    }
    return std::find(text, end, character);
}
