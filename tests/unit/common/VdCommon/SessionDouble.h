#pragma once

#include "tests/support/ImportPatch.h"

#include <optional>
#include <string_view>

extern "C" decltype(&::GetProcAddress) __imp_GetProcAddress;

// Makes the platform say that every process runs in this session; without a number it refuses to say.
class SessionDouble
{
public:
    explicit SessionDouble(std::optional<DWORD> session) : m_patch(__imp_GetProcAddress, &Find)
    {
        s_session = session;
        s_find = m_patch.Original();
    }

private:
    static FARPROC WINAPI Find(HMODULE module, const char* name)
    {
        return name == std::string_view("ProcessIdToSessionId")
                   ? reinterpret_cast<FARPROC>(reinterpret_cast<void (*)()>(&Answer))
                   : s_find(module, name);
    }

    static BOOL WINAPI Answer(DWORD, DWORD* session)
    {
        *session = s_session.value_or(0);
        return s_session.has_value();
    }

    inline static std::optional<DWORD> s_session;
    inline static decltype(&::GetProcAddress) s_find = nullptr;
    const ImportPatch<decltype(&::GetProcAddress)> m_patch;
};
