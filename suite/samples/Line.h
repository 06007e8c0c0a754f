#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace Samples
{

// A local calendar day.
using Date = std::chrono::sys_days;

// A date as eight digits, YYYYMMDD.
std::wstring DateText(Date date);

// The escaped form of a field's text: "%%" for "%", "%I" for "|".
std::wstring Escape(std::wstring_view text);

// One log line under construction: fields in order, a "|" between two of them, no line end.
class Line
{
public:
    // Text as it stands. It must not hold a "|".
    Line& Text(std::wstring_view text);
    // Text of a field that the reader decodes.
    Line& Escaped(std::wstring_view text);

    Line& Empty() { return Text({}); }

    // Signed decimal.
    Line& Number(std::int64_t number);
    // "0x" and the digits, without leading zeros.
    Line& Hexadecimal(std::uint32_t number);
    // YYYYMMDD.
    Line& Day(Date date);
    // HHMMSS of a second of the day.
    Line& Time(int secondOfDay);

    void Clear();

    const std::wstring& Whole() const { return m_strText; }

private:
    void Separate();

    std::wstring m_strText;
    bool m_bFirst = true;
};

} // namespace Samples
