#include "tests/unit/suite/OrlDbMg/RawProvider.h"

#include <gtest/gtest.h>

#include <cstring>

namespace
{

constexpr std::size_t EntrySize = 64;
constexpr std::size_t DaySize = 20;
constexpr std::size_t RequestSize = 42;

template <class Value>
Value At(const std::uint8_t* bytes, std::size_t offset)
{
    Value value;
    std::memcpy(&value, bytes + offset, sizeof value);
    return value;
}

struct Range
{
    const std::uint8_t* first;
    const std::uint8_t* last;
};

Range RangeOf(const void* answer)
{
    const auto* const head = static_cast<const std::uint8_t*>(answer);
    return {At<const std::uint8_t*>(head, 8), At<const std::uint8_t*>(head, 16)};
}

std::wstring LineOf(const std::uint8_t* entry)
{
    const auto length = At<std::uint64_t>(entry, 40);
    const auto capacity = At<std::uint64_t>(entry, 48);
    EXPECT_LE(length, capacity);
    const std::uint8_t* const text = capacity < 8 ? entry + 24 : At<const std::uint8_t*>(entry, 24);
    std::wstring line(length + 1, L'x');
    std::memcpy(line.data(), text, line.size() * sizeof(wchar_t));
    EXPECT_EQ(line.back(), L'\0') << "the terminator is missing";
    line.pop_back();
    return line;
}

} // namespace

template <class Method>
Method RawProvider::Slot(std::size_t number) const
{
    const auto* const table = At<const std::uint8_t*>(static_cast<const std::uint8_t*>(m_provider), 0);
    return At<Method>(table, number * sizeof(void*));
}

HRESULT RawProvider::Initialize() const
{
    return Slot<HRESULT (*)(void*, ULONG_PTR, ULONG_PTR)>(1)(m_provider, 0, 0);
}

HRESULT RawProvider::Uninitialize() const
{
    return Slot<HRESULT (*)(void*, ULONG_PTR, ULONG_PTR)>(2)(m_provider, 0, 0);
}

HRESULT RawProvider::Query(std::uint32_t kind, std::uint32_t query, std::uint32_t logSubType, void** result,
                           std::uint32_t flags, const void* request) const
{
    using Method = HRESULT (*)(void*, std::uint32_t, std::uint32_t, std::uint32_t, void**, std::uint32_t, const void*);
    return Slot<Method>(3)(m_provider, kind, query, logSubType, result, flags, request);
}

HRESULT RawProvider::QueryDay(std::uint32_t logSubType, WORD year, WORD month, WORD day, void** result) const
{
    const WORD period[16] = {year, month, 0, day, 0, 0, 0, 0, year, month, 0, day, 23, 59, 59, 0};
    return Query(2, 1, logSubType, result, 0, period);
}

HRESULT RawProvider::QueryDays(std::uint32_t logSubType, void** result) const
{
    std::uint8_t request[RequestSize]{};
    request[32] = 1;
    return Query(2, 2, logSubType, result, 0, request);
}

std::vector<std::wstring> LinesIn(const void* answer)
{
    std::vector<std::wstring> lines;
    const Range range = RangeOf(answer);
    EXPECT_EQ((range.last - range.first) % EntrySize, 0u);
    for (const std::uint8_t* entry = range.first; entry != range.last; entry += EntrySize)
    {
        lines.push_back(LineOf(entry));
    }
    return lines;
}

std::vector<std::string> DaysIn(const void* answer)
{
    std::vector<std::string> days;
    const Range range = RangeOf(answer);
    EXPECT_EQ((range.last - range.first) % DaySize, 0u);
    for (const std::uint8_t* entry = range.first; entry != range.last; entry += DaySize)
    {
        const auto field = [entry](std::size_t number) { return At<WORD>(entry, 2 * number); };
        char text[80];
        std::snprintf(text, sizeof text, "%u-%u-%u %u %u:%u:%u.%u %u", field(0), field(1), field(3), field(2), field(4),
                      field(5), field(6), field(7), At<std::uint32_t>(entry, 16));
        days.emplace_back(text);
    }
    return days;
}
