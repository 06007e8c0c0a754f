#pragma once

#include "tests/support/ImportPatch.h"

#include <string>
#include <utility>

extern "C" decltype(&::GetProcAddress) __imp_GetProcAddress;

// Stands for a function that this program looks up in a library at run time, whichever it is, for the life of the
// object; one at a time.
class ProcedureDouble
{
public:
    template <class Function>
    ProcedureDouble(std::string name, Function* function)
        : m_strName(std::move(name)),
          m_pfnDouble(reinterpret_cast<FARPROC>(reinterpret_cast<void (*)()>(function))),
          m_patch(__imp_GetProcAddress, &Find)
    {
        s_current = this;
    }

    ~ProcedureDouble() { s_current = nullptr; }

    ProcedureDouble(const ProcedureDouble&) = delete;
    ProcedureDouble& operator=(const ProcedureDouble&) = delete;

private:
    static FARPROC WINAPI Find(HMODULE module, const char* name)
    {
        const bool isIt = !IS_INTRESOURCE(name) && name == s_current->m_strName; // not a number in a name's place
        return isIt ? s_current->m_pfnDouble : s_current->m_patch.Original()(module, name);
    }

    inline static ProcedureDouble* s_current = nullptr;

    const std::string m_strName;
    const FARPROC m_pfnDouble;
    const ImportPatch<decltype(&::GetProcAddress)> m_patch;
};
