#pragma once

#include "common/OrlDbMg.h"
#include "platform/dialog/UniqueHandle.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

// What a database library of the tests was told, and what it answers. The library keeps it as long as it is loaded.
struct OrlLibraryState
{
    std::array<const char*, 32> calls{}; // texts of the library
    std::size_t count = 0;

    HRESULT initialize = OrlSuccess;
    HRESULT uninitialize = OrlSuccess;
    HRESULT create = OrlSuccess;
    HRESULT free = OrlSuccess;
    HRESULT providerInitialize = OrlSuccess;
    HRESULT providerUninitialize = OrlSuccess;
    bool givesProvider = true;
};

// The library's own export beside those of the interface: FreshOrlState, which forgets everything.
using OrlLibraryStateFunction = OrlLibraryState&();

// A database library of the tests, loaded by the test as well, so that it can be looked at when its user has let it go.
class OrlLibraryDouble
{
public:
    // form: "good", or "incomplete", which lacks Orl_FreeFunction.
    explicit OrlLibraryDouble(const std::wstring& form = L"good");

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
