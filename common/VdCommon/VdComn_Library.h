#pragma once

#include "common/VdCommon/VdComn_Procedure.h"
#include "platform/dialog/UniqueHandle.h"

#include <windows.h>

#include <cstdint>
#include <string>

namespace VdCommon::Library
{

// A run-time library: owns its module, if one is held.
class Base
{
public:
    Base() = default;
    Base(const Base&) = delete;
    Base& operator=(const Base&) = delete;
    virtual ~Base();

    HMODULE Module() const noexcept { return m_hModule.get(); }

protected:
    // Frees the module if one is held. Where the platform refuses, the handle is kept: false, its last error stands.
    bool Free() noexcept;

    UniqueModule m_hModule;
};

// A library with exports that a derived class holds as function pointers and looks up in Bind.
// `error` may be null everywhere; it gets 0 on success.
class Wrapper : public Base
{
public:
    // Frees a bound library.
    ~Wrapper() override;

    // With `load` true looks up every export of the library, also after a failure; bound only if all are there.
    // With false zeroes them, which always succeeds. Implement it by BindLibrary.
    virtual bool Bind(bool load, std::uint32_t* error) = 0;

    bool IsBound() const noexcept { return m_bBound; }

    // Looks up one export into `procedure`. Codes: 160 null name or null output, 6 no module, else the platform's.
    template <class Function>
    bool GetProcedure(Function** procedure, const wchar_t* name, std::uint32_t* error = nullptr) const noexcept
    {
        return VdCommon::GetProcedure(Module(), procedure, name, error);
    }

protected:
    // Loads the file and binds it. Codes: 5010 bound or loaded already, 160 an empty path, 6 nothing to bind, else the
    // platform's. A module whose binding failed stays loaded.
    bool InitializeLibrary(const std::wstring& path, std::uint32_t* error);

    // Frees the module and, if that succeeded, unbinds. Codes: 6 not bound or not loaded, else the platform's.
    bool UnInitializeLibrary(std::uint32_t* error);

    // The work of Bind for the exports given.
    template <class... Function>
    bool BindLibrary(bool load, std::uint32_t* error, const Export<Function>&... exports) noexcept
    {
        const bool done = BindExports(Module(), load, error, exports...);
        m_bBound = load && done;
        return done;
    }

private:
    bool m_bBound = false;
};

} // namespace VdCommon::Library
