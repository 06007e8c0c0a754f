#pragma once

#include "platform/dialog/UniqueHandle.h"
#include "tests/support/OrlLibraryDouble.h"

#include <string>
#include <vector>

// A database library of the tests, loaded by the test as well, so that it can be looked at when its user has let it go.
class OrlRecorder
{
public:
    // form: "good", or "incomplete", which lacks Orl_FreeFunction.
    explicit OrlRecorder(const std::wstring& form = L"good");

    // Where it lies, without a final separator.
    const std::wstring& Folder() const { return m_strFolder; }

    HMODULE Module() const { return m_hModule.get(); }

    OrlLibraryState& State() const { return *m_pState; }

    std::vector<std::string> Calls() const
    {
        return {m_pState->calls.data(), m_pState->calls.data() + m_pState->count};
    }

private:
    std::wstring m_strFolder;
    UniqueModule m_hModule;
    OrlLibraryState* m_pState;
};
