#pragma once

#include "common/OrlDbMg.h"

#include <memory_resource>
#include <string_view>
#include <vector>

namespace OrlDbMg
{

// The answer of one query in the layouts of the interface: a head, its entries and their texts. What users are not said
// to read is zero.
class Answer
{
public:
    Answer() = default;
    Answer(const Answer&) = delete;
    Answer& operator=(const Answer&) = delete;

    // Forgets the answer and frees its memory.
    void Clear();

    void AddLine(std::wstring_view line);
    // A day as YYYYMMDD.
    void AddDay(std::uint32_t day);

    // The head over all lines, or over all days; valid until the next change.
    void* Lines();
    void* Days();

private:
    std::pmr::monotonic_buffer_resource m_texts;
    std::vector<OrlLogEntry> m_arrLine;
    std::vector<OrlDayEntry> m_arrDay;
    OrlVector<OrlLogEntry> m_lineHead{};
    OrlVector<OrlDayEntry> m_dayHead{};
};

} // namespace OrlDbMg
