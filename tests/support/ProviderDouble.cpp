#include "tests/support/ProviderDouble.h"

#include <cstring>

namespace
{

constexpr std::size_t HeadSize = 32; // more than anybody knows of it
constexpr std::size_t HeadFirst = 8;
constexpr std::size_t HeadLast = 16;

constexpr std::size_t EntrySize = 64;
constexpr std::size_t EntryText = 16 + 8;
constexpr std::size_t EntryLength = 16 + 24;
constexpr std::size_t EntryCapacity = 16 + 32;
constexpr std::size_t RoomInside = 16;
constexpr std::uint64_t CapacityInside = 7;

constexpr std::uint8_t Unread = 0xCD;

template <class Value>
void Put(std::uint8_t* at, const Value& value)
{
    std::memcpy(at, &value, sizeof value);
}

} // namespace

ProviderAnswer::ProviderAnswer() : m_head(HeadSize, Unread) {}

void ProviderAnswer::Add(std::wstring_view line)
{
    if (line.size() > CapacityInside)
    {
        return AddElsewhere(line, line.size());
    }
    m_entries.resize(m_entries.size() + EntrySize, Unread);
    std::uint8_t* const entry = &m_entries.back() + 1 - EntrySize;
    wchar_t inside[RoomInside / sizeof(wchar_t)]{};
    line.copy(inside, line.size());
    std::memcpy(entry + EntryText, inside, RoomInside);
    Put(entry + EntryLength, std::uint64_t{line.size()});
    Put(entry + EntryCapacity, CapacityInside);
}

void ProviderAnswer::AddElsewhere(std::wstring_view line, std::uint64_t capacity)
{
    const std::wstring& kept = m_texts.emplace_back(line);
    m_entries.resize(m_entries.size() + EntrySize, Unread);
    std::uint8_t* const entry = &m_entries.back() + 1 - EntrySize;
    Put(entry + EntryText, kept.c_str());
    Put(entry + EntryLength, std::uint64_t{line.size()});
    Put(entry + EntryCapacity, capacity);
}

void* ProviderAnswer::Address()
{
    Put(m_head.data() + HeadFirst, m_entries.data());
    Put(m_head.data() + HeadLast, m_entries.data() + m_entries.size());
    return m_head.data();
}

HRESULT ProviderDouble::QueryValue(std::uint32_t kind, std::uint32_t query, std::uint32_t logSubType, void** result,
                                   std::uint32_t flags, const void* request)
{
    const auto* const bytes = static_cast<const std::uint8_t*>(request);
    m_arrQuery.push_back({kind, query, logSubType, *result, flags, {bytes, bytes + m_requestSize}});
    *result = m_answer;
    return m_status;
}
