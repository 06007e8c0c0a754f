#pragma once

#include "common/VdCommon/VdComn_ErrorCode.h"

#include <windows.h>

#include <cstdint>

// Looking up the exports of a run-time library. Codes go to `error`, which may be null: 0 success, 160 a null name or a
// null output, 6 no module, else the platform's last error.
namespace VdCommon
{

// The export `name` of `module`, or null. The name is narrowed with the thread's ANSI code page.
FARPROC FindProcedure(HMODULE module, const wchar_t* name, std::uint32_t* error = nullptr) noexcept;

// The same into a typed pointer, which becomes null on a failure. Returns whether it was found.
template <class Function>
bool GetProcedure(HMODULE module, Function** procedure, const wchar_t* name, std::uint32_t* error = nullptr) noexcept
{
    if (procedure == nullptr)
    {
        return StoreError(error, ERROR_BAD_ARGUMENTS);
    }
    const FARPROC found = FindProcedure(module, name, error);
    // By way of the one function type that any other may be cast from.
    *procedure = reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(found));
    return found != nullptr;
}

// A pointer of the binding class and the export that it stands for.
template <class Function>
struct Export
{
    const wchar_t* name;
    Function** procedure;
};

// With `load` true looks up every export, also after a failure, whose code replaces that of the one before; returns
// whether all were found. With false zeroes the pointers and returns true.
template <class... Function>
bool BindExports(HMODULE module, bool load, std::uint32_t* error, const Export<Function>&... exports) noexcept
{
    StoreError(error, ERROR_SUCCESS);
    if (!load)
    {
        ((*exports.procedure = nullptr), ...);
        return true;
    }
    bool all = true;
    const auto bind = [&](const auto& one)
    {
        std::uint32_t code = ERROR_SUCCESS;
        if (!GetProcedure(module, one.procedure, one.name, &code))
        {
            all = StoreError(error, code);
        }
    };
    (bind(exports), ...);
    return all;
}

} // namespace VdCommon
