#pragma once

#include <cstddef>
#include <cstdint>
#include <memory_resource>
#include <string>
#include <string_view>

// Where the records of a log and their texts lie until all of them end at once.
//
// Names, paths and times come again by the thousand, so a text is looked for among those kept before and kept only
// once. One is remembered for each of some thousand places that its characters lead to: what a text pushes out of its
// place stays where it is, and is kept again when it comes again.
class RecordMemory
{
public:
    explicit RecordMemory(std::pmr::memory_resource* upstream) : m_records(upstream), m_texts(upstream) {}

    RecordMemory(const RecordMemory&) = delete;
    RecordMemory& operator=(const RecordMemory&) = delete;

    std::pmr::memory_resource* Resource() { return &m_records; }

    // The text, or the two as one, in this memory.
    std::wstring_view Keep(std::wstring_view text);
    std::wstring_view KeepJoined(std::wstring_view first, std::wstring_view second);

    // Gives everything back at once.
    void Release();

private:
    // A text that was kept, and what tells at once that another one is not the same.
    struct Remembered
    {
        const wchar_t* text;
        std::uint32_t size;
        std::uint32_t mark;
    };

    std::pmr::monotonic_buffer_resource m_records;
    std::pmr::monotonic_buffer_resource m_texts; // by themselves, so that those that come again lie close together
    Remembered* m_pRemembered = nullptr;         // one for each place, in this memory; null until the first text
    std::wstring m_strJoined;                    // as long as the longest so far
};

// A copy of the text in the memory.
std::wstring_view CopyText(std::wstring_view text, std::pmr::memory_resource* memory);
