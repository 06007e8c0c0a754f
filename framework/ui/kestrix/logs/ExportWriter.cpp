#include "framework/ui/kestrix/logs/ExportWriter.h"

#include <algorithm>
#include <utility>

#include <emmintrin.h>

void ExportWriter::Begin()
{
    m_arrBlock.resize(BlockSize);
    m_nUsed = 0;
}

bool ExportWriter::Write(std::wstring_view text)
{
    while (!text.empty())
    {
        text.remove_prefix(CopyToLineFeed(text));
        if (text.starts_with(L'\n'))
        {
            if (!Put(L'\r') || !Put(L'\n'))
            {
                return false;
            }
            text.remove_prefix(1);
        }
        else if (!text.empty() && !WriteBlock())
        {
            return false;
        }
    }
    return true;
}

bool ExportWriter::WriteLabel(std::wstring_view text, wchar_t end)
{
    return Put(L'"') && Write(text) && Put(L'"') && (end != L'\n' || Put(L'\r')) && Put(end);
}

// Takes what stands before the first line feed, as far as there is room, and gives the number of characters. One pass
// over eight at a time both looks and copies: fields are short and many.
std::size_t ExportWriter::CopyToLineFeed(std::wstring_view text)
{
    constexpr std::ptrdiff_t step = sizeof(__m128i) / sizeof(wchar_t);
    const __m128i feed = _mm_set1_epi16(L'\n');
    const wchar_t* source = text.data();
    const wchar_t* const end = source + std::min(text.size(), BlockSize - m_nUsed);
    wchar_t* target = m_arrBlock.data() + m_nUsed;
    for (; end - source >= step; source += step, target += step)
    {
        const __m128i eight = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source));
        if (_mm_movemask_epi8(_mm_cmpeq_epi16(eight, feed)) != 0)
        {
            break;
        }
        _mm_storeu_si128(reinterpret_cast<__m128i*>(target), eight);
    }
    while (source != end && *source != L'\n')
    {
        *target++ = *source++;
    }
    const auto count = static_cast<std::size_t>(source - text.data());
    m_nUsed += count;
    return count;
}

bool ExportWriter::Put(wchar_t character)
{
    if (m_nUsed == BlockSize && !WriteBlock())
    {
        return false;
    }
    m_arrBlock[m_nUsed++] = character;
    return true;
}

bool ExportWriter::WriteBlock()
{
    return TakeBlock({m_arrBlock.data(), std::exchange(m_nUsed, 0)});
}
