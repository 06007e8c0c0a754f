#include "suite/samples/Line.h"

#include <charconv>

namespace Samples
{

namespace
{

void AppendDigits(std::wstring& text, std::uint32_t number, int width)
{
    wchar_t digits[10];
    for (int place = width - 1; place >= 0; --place)
    {
        digits[place] = static_cast<wchar_t>(L'0' + number % 10);
        number /= 10;
    }
    text.append(digits, static_cast<std::size_t>(width));
}

void AppendDate(std::wstring& text, Date date)
{
    const std::chrono::year_month_day day(date);
    AppendDigits(text, static_cast<std::uint32_t>(static_cast<int>(day.year())), 4);
    AppendDigits(text, static_cast<unsigned>(day.month()), 2);
    AppendDigits(text, static_cast<unsigned>(day.day()), 2);
}

void AppendEscaped(std::wstring& text, std::wstring_view plain)
{
    for (const wchar_t c : plain)
    {
        switch (c)
        {
        case L'%':
            text += L"%%";
            break;
        case L'|':
            text += L"%I";
            break;
        default:
            text += c;
        }
    }
}

} // namespace

std::wstring DateText(Date date)
{
    std::wstring text;
    AppendDate(text, date);
    return text;
}

std::wstring Escape(std::wstring_view text)
{
    std::wstring escaped;
    AppendEscaped(escaped, text);
    return escaped;
}

Line& Line::Text(std::wstring_view text)
{
    Separate();
    m_strText += text;
    return *this;
}

Line& Line::Escaped(std::wstring_view text)
{
    Separate();
    AppendEscaped(m_strText, text);
    return *this;
}

Line& Line::Number(std::int64_t number)
{
    Separate();
    char digits[20];
    m_strText.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
    return *this;
}

Line& Line::Hexadecimal(std::uint32_t number)
{
    Separate();
    char digits[8];
    m_strText += L"0x";
    m_strText.append(digits, std::to_chars(digits, digits + sizeof digits, number, 16).ptr);
    return *this;
}

Line& Line::Day(Date date)
{
    Separate();
    AppendDate(m_strText, date);
    return *this;
}

Line& Line::Time(int secondOfDay)
{
    Separate();
    const auto second = static_cast<std::uint32_t>(secondOfDay);
    AppendDigits(m_strText, second / 3600 * 10000 + second / 60 % 60 * 100 + second % 60, 6);
    return *this;
}

void Line::Clear()
{
    m_strText.clear();
    m_bFirst = true;
}

void Line::Separate()
{
    if (!m_bFirst)
    {
        m_strText += L'|';
    }
    m_bFirst = false;
}

} // namespace Samples
