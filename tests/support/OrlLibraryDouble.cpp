// A database library that keeps what it is told. One source, compiled once per form: INCOMPLETE lacks an export.

#include "tests/support/OrlLibraryDouble.h"

namespace
{

OrlLibraryState state;

HRESULT Note(const char* call, bool zeros, HRESULT answer)
{
    state.calls.at(state.count++) = zeros ? call : "a call with words that are not zero";
    return answer;
}

class Provider final : public IDBManagerProvider
{
public:
    HRESULT Reserved() override { return Note("Reserved", true, E_NOTIMPL); }

    HRESULT Initialize(ULONG_PTR zero, ULONG_PTR zeroToo) override
    {
        return Note("provider Initialize", zero == 0 && zeroToo == 0, state.providerInitialize);
    }

    HRESULT Uninitialize(ULONG_PTR zero, ULONG_PTR zeroToo) override
    {
        return Note("provider Uninitialize", zero == 0 && zeroToo == 0, state.providerUninitialize);
    }

    HRESULT QueryValue(std::uint32_t, std::uint32_t, std::uint32_t, void**, std::uint32_t, const void*) override
    {
        return Note("QueryValue", true, E_NOTIMPL);
    }
};

Provider provider;

} // namespace

extern "C"
{

    __declspec(dllexport) OrlLibraryState& FreshOrlState()
    {
        state = {};
        return state;
    }

    __declspec(dllexport) HRESULT Orl_Initialize(ULONG_PTR zero, ULONG_PTR zeroToo)
    {
        return Note("Orl_Initialize", zero == 0 && zeroToo == 0, state.initialize);
    }

    __declspec(dllexport) HRESULT Orl_Uninitialize(ULONG_PTR zero, ULONG_PTR zeroToo)
    {
        return Note("Orl_Uninitialize", zero == 0 && zeroToo == 0, state.uninitialize);
    }

    __declspec(dllexport) HRESULT Orl_CreateFunction(IDBManagerProvider** made, ULONG_PTR zero, ULONG_PTR zeroToo)
    {
        *made = state.givesProvider ? &provider : nullptr; // also when it fails
        return Note("Orl_CreateFunction", zero == 0 && zeroToo == 0, state.create);
    }

#ifndef INCOMPLETE
    __declspec(dllexport) HRESULT Orl_FreeFunction(ULONG_PTR zero, ULONG_PTR zeroToo, ULONG_PTR zeroThree)
    {
        return Note("Orl_FreeFunction", zero == 0 && zeroToo == 0 && zeroThree == 0, state.free);
    }
#endif
}
