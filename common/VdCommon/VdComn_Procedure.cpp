#include "common/VdCommon/VdComn_Procedure.h"

#include <algorithm>
#include <array>

namespace VdCommon
{

namespace
{

// Room for the name of an export in bytes, with its terminator; no compiler makes a longer one.
constexpr int LongestName = 4096;

} // namespace

FARPROC FindProcedure(HMODULE module, const wchar_t* name, std::uint32_t* error) noexcept
{
    if (name == nullptr)
    {
        StoreError(error, ERROR_BAD_ARGUMENTS);
        return nullptr;
    }
    if (module == nullptr)
    {
        StoreError(error, ERROR_INVALID_HANDLE);
        return nullptr;
    }
    std::array<char, LongestName> narrow;
    const bool narrowed =
        ::WideCharToMultiByte(CP_THREAD_ACP, 0, name, -1, narrow.data(), LongestName, nullptr, nullptr) != 0;
    const FARPROC found = narrowed ? ::GetProcAddress(module, narrow.data()) : nullptr;
    StoreError(error, found == nullptr ? ::GetLastError() : ERROR_SUCCESS);
    return found;
}

} // namespace VdCommon
