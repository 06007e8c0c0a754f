#include "framework/ui/kestrix/logs/RecordMemory.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>

namespace
{

constexpr int PlaceBits = 12;
constexpr std::size_t Places = std::size_t{1} << PlaceBits;

// In characters. More than a line of a daily file can have.
constexpr std::size_t LongestRemembered = 4096;

// Texts are looked at four characters at a time, the last four of a text of four or more perhaps a second time.
constexpr std::size_t WordSize = sizeof(std::uint64_t) / sizeof(wchar_t);

std::uint64_t WordAt(const wchar_t* text)
{
    std::uint64_t word = 0;
    std::memcpy(&word, text, sizeof word);
    return word;
}

// A number that differs for nearly all different texts, most of all in its higher half.
std::uint64_t MixOf(std::wstring_view text)
{
    constexpr std::uint64_t factor = 0x9E3779B97F4A7C15; // odd, with bits all over
    std::uint64_t mixed = text.size();
    const auto mix = [&mixed](std::uint64_t word) { mixed = (mixed ^ word) * factor; };
    if (text.size() < WordSize)
    {
        std::ranges::for_each(text, mix);
    }
    else
    {
        const wchar_t* const last = text.data() + text.size() - WordSize;
        for (const wchar_t* word = text.data(); word < last; word += WordSize)
        {
            mix(WordAt(word));
        }
        mix(WordAt(last));
    }
    return mixed;
}

// The run-time library does both of these too, yet is made for longer texts.
void Copy(const wchar_t* from, std::size_t size, wchar_t* to)
{
    if (size < WordSize)
    {
        for (; size > 0; --size)
        {
            *to++ = *from++;
        }
        return;
    }
    const std::size_t last = size - WordSize;
    for (std::size_t i = 0; i < last; i += WordSize)
    {
        std::memcpy(to + i, from + i, sizeof(std::uint64_t));
    }
    std::memcpy(to + last, from + last, sizeof(std::uint64_t));
}

bool AreSame(const wchar_t* first, const wchar_t* second, std::size_t size)
{
    if (size < WordSize)
    {
        return std::equal(first, first + size, second);
    }
    const std::size_t last = size - WordSize;
    for (std::size_t i = 0; i < last; i += WordSize)
    {
        if (WordAt(first + i) != WordAt(second + i))
        {
            return false;
        }
    }
    return WordAt(first + last) == WordAt(second + last);
}

} // namespace

std::wstring_view RecordMemory::Keep(std::wstring_view text)
{
    if (text.empty())
    {
        return {};
    }
    if (text.size() > LongestRemembered)
    {
        return CopyText(text, &m_texts);
    }
    if (m_pRemembered == nullptr)
    {
        std::pmr::polymorphic_allocator<Remembered> memory(&m_texts);
        m_pRemembered = memory.allocate(Places);
        std::uninitialized_fill_n(m_pRemembered, Places, Remembered{});
    }
    const std::uint64_t mix = MixOf(text);
    const auto size = static_cast<std::uint32_t>(text.size());
    const auto mark = static_cast<std::uint32_t>(mix >> 32);
    Remembered& remembered = m_pRemembered[mix >> (64 - PlaceBits)];
    if (remembered.mark != mark || remembered.size != size || !AreSame(remembered.text, text.data(), size))
    {
        remembered = {CopyText(text, &m_texts).data(), size, mark};
    }
    return {remembered.text, size};
}

std::wstring_view RecordMemory::KeepJoined(std::wstring_view first, std::wstring_view second)
{
    const std::size_t size = first.size() + second.size();
    if (m_strJoined.size() < size)
    {
        m_strJoined.resize(size);
    }
    Copy(first.data(), first.size(), m_strJoined.data());
    Copy(second.data(), second.size(), m_strJoined.data() + first.size());
    return Keep({m_strJoined.data(), size});
}

void RecordMemory::Release()
{
    m_pRemembered = nullptr;
    m_texts.release();
    m_records.release();
}

std::wstring_view CopyText(std::wstring_view text, std::pmr::memory_resource* memory)
{
    if (text.empty())
    {
        return {};
    }
    wchar_t* const copy = std::pmr::polymorphic_allocator<wchar_t>(memory).allocate(text.size());
    Copy(text.data(), text.size(), copy);
    return {copy, text.size()};
}
