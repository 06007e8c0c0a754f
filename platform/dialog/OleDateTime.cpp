#include "platform/dialog/OleDateTime.h"

#include <memory>

COleDateTime::COleDateTime(const SYSTEMTIME& time) noexcept
    : COleDateTime(time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond)
{
}

COleDateTime::COleDateTime(int year, int month, int day, int hour, int minute, int second) noexcept : m_status(invalid)
{
    SYSTEMTIME given{};
    given.wYear = static_cast<WORD>(year);
    given.wMonth = static_cast<WORD>(month);
    given.wDay = static_cast<WORD>(day);
    given.wHour = static_cast<WORD>(hour);
    given.wMinute = static_cast<WORD>(minute);
    given.wSecond = static_cast<WORD>(second);

    // The conversion reads years below 100 as years of this or the last century and carries a day too many into the
    // next month, so that only the way back tells.
    SYSTEMTIME back{};
    if (!SystemTimeToVariantTime(&given, &m_dt) || !VariantTimeToSystemTime(m_dt, &back))
    {
        return;
    }
    const bool same = back.wYear == year && back.wMonth == month && back.wDay == day && back.wHour == hour &&
                      back.wMinute == minute && back.wSecond == second;
    m_status = same ? valid : invalid;
}

COleDateTime COleDateTime::Now() noexcept
{
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return COleDateTime(now);
}

bool COleDateTime::GetAsSystemTime(SYSTEMTIME& time) const noexcept
{
    return m_status == valid && VariantTimeToSystemTime(m_dt, &time);
}

bool COleDateTime::ParseDateTime(const std::wstring& text, DWORD flags, LCID locale) noexcept
{
    m_status = SUCCEEDED(VarDateFromStr(const_cast<OLECHAR*>(text.c_str()), locale, flags, &m_dt)) ? valid : invalid;
    return m_status == valid;
}

std::wstring COleDateTime::Format(DWORD flags, LCID locale) const
{
    BSTR text = nullptr;
    if (m_status != valid || FAILED(VarBstrFromDate(m_dt, locale, flags, &text)))
    {
        return {};
    }
    const std::unique_ptr<OLECHAR, decltype(&SysFreeString)> owner(text, &SysFreeString);
    return {text, SysStringLen(text)};
}
