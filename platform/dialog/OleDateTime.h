#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>

// A local date and time in the automation format, with a status that says whether it is one.
// Anything that cannot be represented makes the object invalid; no operation throws.
class COleDateTime
{
public:
    enum DateTimeStatus
    {
        valid,
        invalid,
        null, // no date was given
    };

    COleDateTime() noexcept = default;

    explicit COleDateTime(const SYSTEMTIME& time) noexcept;

    // Invalid unless the fields survive the way to the automation format and back, so 30 February is refused.
    COleDateTime(int year, int month, int day, int hour, int minute, int second) noexcept;

    static COleDateTime Now() noexcept;

    DateTimeStatus GetStatus() const noexcept { return m_status; }

    // Returns false, and leaves time as it was, when the date is not valid.
    bool GetAsSystemTime(SYSTEMTIME& time) const noexcept;

    // Reads a text in the form of the locale; flags are those of VarDateFromStr. Returns whether it was a date.
    bool ParseDateTime(const std::wstring& text, DWORD flags = 0, LCID locale = LANG_USER_DEFAULT) noexcept;

    // The text in the form of the locale; flags are those of VarBstrFromDate, VAR_DATEVALUEONLY for the date alone.
    // Empty when the date is not valid.
    std::wstring Format(DWORD flags, LCID locale = LANG_USER_DEFAULT) const;

    friend bool operator<(const COleDateTime& left, const COleDateTime& right) noexcept
    {
        return left.m_dt < right.m_dt;
    }

private:
    DATE m_dt = 0;
    DateTimeStatus m_status = null;
};
