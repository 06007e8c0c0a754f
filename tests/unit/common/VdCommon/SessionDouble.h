#pragma once

#include "tests/support/ProcedureDouble.h"

#include <optional>

// Makes the platform say that every process runs in this session; without a number it refuses to say.
class SessionDouble
{
public:
    explicit SessionDouble(std::optional<DWORD> session) { s_session = session; }

private:
    static BOOL WINAPI Answer(DWORD, DWORD* session)
    {
        *session = s_session.value_or(0);
        return s_session.has_value();
    }

    inline static std::optional<DWORD> s_session;
    const ProcedureDouble m_procedure{"ProcessIdToSessionId", &Answer};
};
