#include "suite/OrlDbMg/Answer.h"

namespace OrlDbMg
{

namespace
{

template <class Entry>
void* Head(OrlVector<Entry>& head, const std::vector<Entry>& entries)
{
    head.first = entries.data();
    head.last = entries.data() + entries.size();
    return &head;
}

} // namespace

void Answer::Clear()
{
    m_arrLine = {};
    m_arrDay = {};
    m_texts.release();
}

void Answer::AddLine(std::wstring_view line)
{
    OrlWideString& string = m_arrLine.emplace_back().line;
    string.length = line.size();
    wchar_t* text = string.inlineText;
    if (line.size() < OrlInlineCapacity)
    {
        string.capacity = OrlInlineCapacity - 1;
    }
    else
    {
        string.capacity = line.size();
        text = static_cast<wchar_t*>(m_texts.allocate((line.size() + 1) * sizeof(wchar_t), alignof(wchar_t)));
        string.text = text;
    }
    line.copy(text, line.size());
    text[line.size()] = L'\0';
}

void Answer::AddDay(std::uint32_t day)
{
    SYSTEMTIME& date = m_arrDay.emplace_back().day;
    date.wYear = static_cast<WORD>(day / 10000);
    date.wMonth = static_cast<WORD>(day / 100 % 100);
    date.wDay = static_cast<WORD>(day % 100);
}

void* Answer::Lines()
{
    return Head(m_lineHead, m_arrLine);
}

void* Answer::Days()
{
    return Head(m_dayHead, m_arrDay);
}

} // namespace OrlDbMg
