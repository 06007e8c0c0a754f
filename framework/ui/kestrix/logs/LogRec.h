#pragma once

#include "framework/ui/kestrix/logs/LogFields.h"
#include "framework/ui/kestrix/logs/RecordMemory.h"

#include <cstddef>
#include <cstdint>
#include <memory_resource>
#include <new>
#include <string_view>

// One log event. The record, its field vector and its texts lie in the memory resource that it was made with, and all
// end with that resource: nothing of a record is freed by itself.
struct LogRec
{
    // A record among others, whose texts are kept once for all of them.
    explicit LogRec(RecordMemory& memory) : strData(memory.Resource()), m_pMemory(&memory) {}

    // A record by itself.
    explicit LogRec(std::pmr::memory_resource* memory) : strData(memory) {}

    LogRec(const LogRec&) = delete;
    LogRec& operator=(const LogRec&) = delete;

    std::uint32_t nImage = 0; // index of the row's icon in the image list of the log

    // The display fields in the order in which the log class appended them.
    LogFields strData;

    // Keeps the text in the record's memory, as its next field.
    void Append(std::wstring_view text) { strData.push_back(Keep(text)); }

    // The same with the two texts one after the other.
    void AppendJoined(std::wstring_view first, std::wstring_view second);

    // As Append, for a text that outlives the record by itself: a literal or a text of the language file. Nothing is
    // copied.
    void AppendLasting(std::wstring_view text) { strData.push_back(text); }

    // The field; throws std::out_of_range when the record is shorter.
    std::wstring_view Field(std::size_t index) const;

    // The same for those who cannot take the error: the field is empty when the record is shorter.
    std::wstring_view FieldOrEmpty(std::size_t index) const noexcept
    {
        return index < strData.size() ? strData[index] : std::wstring_view();
    }

    // The last field; throws std::out_of_range when the record has none.
    std::wstring_view LastField() const { return Field(strData.size() - 1); }

    // A copy of the text that lives as long as the record.
    std::wstring_view Keep(std::wstring_view text) const
    {
        return m_pMemory != nullptr ? m_pMemory->Keep(text) : CopyText(text, strData.Memory());
    }

private:
    RecordMemory* m_pMemory = nullptr; // null for a record by itself
};

// A record of a class in the memory, with which it ends.
template <class Record>
Record* MakeRecord(RecordMemory& memory)
{
    return new (memory.Resource()->allocate(sizeof(Record), alignof(Record))) Record(memory);
}
