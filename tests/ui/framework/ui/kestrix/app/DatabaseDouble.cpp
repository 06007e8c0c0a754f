#include "tests/ui/framework/ui/kestrix/app/DatabaseDouble.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

void DatabaseDouble::AddDay(WORD year, WORD month, WORD day)
{
    OrlDayEntry entry{};
    entry.day.wYear = year;
    entry.day.wMonth = month;
    entry.day.wDay = day;
    entry.reserved = 0xCDCDCDCD;
    m_days.push_back(entry);
}

void DatabaseDouble::SetLines(std::initializer_list<std::wstring> lines)
{
    m_lines = {};
    for (const std::wstring& line : lines)
    {
        m_lines.Add(line);
    }
}

HRESULT DatabaseDouble::QueryValue(std::uint32_t kind, std::uint32_t query, std::uint32_t logSubType, void** result,
                                   std::uint32_t flags, const void* request)
{
    const bool forDays = query == OrlQueryDays;
    m_requestSize = forDays ? offsetof(OrlDayListRequest, zeroTail) + sizeof(std::uint16_t) : sizeof(OrlPeriod);
    m_status = forDays ? m_daysStatus : m_linesStatus;
    m_daysHead.first = m_days.data();
    m_daysHead.last = m_days.data() + m_days.size();
    m_answer = !forDays ? m_lines.Address() : m_givesNoDays ? nullptr : &m_daysHead;
    return ProviderDouble::QueryValue(kind, query, logSubType, result, flags, request);
}

int DatabaseDouble::CountOf(std::uint32_t query) const
{
    return static_cast<int>(std::ranges::count(m_arrQuery, query, &Query::query));
}

SYSTEMTIME DatabaseDouble::AskedFrom() const
{
    const auto last = std::find_if(m_arrQuery.rbegin(), m_arrQuery.rend(),
                                   [](const Query& query) { return query.query == OrlQueryRecords; });
    if (last == m_arrQuery.rend())
    {
        throw std::logic_error("no records were asked for");
    }
    SYSTEMTIME from{};
    std::memcpy(&from, last->request.data(), sizeof from);
    return from;
}
