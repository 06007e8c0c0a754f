#pragma once

#include <windows.h>

#include <array>
#include <stdexcept>
#include <string>

// The form in which the user wants short dates, as it can be chosen in the regional settings: it holds for this program
// and for those that start while the object lives. One at a time, and no other test beside it.
class ShortDateFormat
{
public:
    // Throws std::runtime_error when the form cannot be set.
    explicit ShortDateFormat(const std::wstring& picture)
    {
        if (::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, m_before.data(),
                             static_cast<int>(m_before.size())) == 0 ||
            !::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, picture.c_str()))
        {
            throw std::runtime_error("the regional settings of the test cannot be changed");
        }
    }

    ~ShortDateFormat() { ::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, m_before.data()); }

    ShortDateFormat(const ShortDateFormat&) = delete;
    ShortDateFormat& operator=(const ShortDateFormat&) = delete;

private:
    std::array<wchar_t, 80> m_before{}; // the longest that the system keeps
};
