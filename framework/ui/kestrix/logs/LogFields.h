#pragma once

#include <cstddef>
#include <cstdint>
#include <memory_resource>
#include <string_view>

// The fields of a record, an array in the memory of the record. Like a vector in its use, yet it frees nothing, and
// what makes it larger stands elsewhere: a million records have their fields appended one by one.
class LogFields
{
public:
    explicit LogFields(std::pmr::memory_resource* memory) : m_pMemory(memory) {}

    LogFields(const LogFields&) = delete;
    LogFields& operator=(const LogFields&) = delete;

    std::size_t size() const { return m_nSize; }

    bool empty() const { return m_nSize == 0; }

    std::wstring_view& operator[](std::size_t index) { return m_pFields[index]; }

    const std::wstring_view& operator[](std::size_t index) const { return m_pFields[index]; }

    std::wstring_view& back() { return m_pFields[m_nSize - 1]; }

    const std::wstring_view& back() const { return m_pFields[m_nSize - 1]; }

    const std::wstring_view* begin() const { return m_pFields; }

    const std::wstring_view* end() const { return m_pFields + m_nSize; }

    void push_back(std::wstring_view text)
    {
        if (m_nSize == m_nRoom)
        {
            reserve(m_nRoom < LeastRoom ? LeastRoom : std::size_t{2} * m_nRoom);
        }
        m_pFields[m_nSize++] = text;
    }

    // Makes room for so many fields in all.
    void reserve(std::size_t room);

    // Makes so many fields of it; new ones are empty.
    void resize(std::size_t size);

    std::pmr::memory_resource* Memory() const { return m_pMemory; }

private:
    static constexpr std::uint32_t LeastRoom = 4;

    std::pmr::memory_resource* m_pMemory;
    std::wstring_view* m_pFields = nullptr;
    std::uint32_t m_nSize = 0;
    std::uint32_t m_nRoom = 0;
};
