#pragma once

#include <cstdint>

namespace VdCommon
{

// Stores the platform's error code for a caller who asked for it (error may be null). Returns true for code 0, success.
inline bool StoreError(std::uint32_t* error, std::uint32_t code) noexcept
{
    if (error != nullptr)
    {
        *error = code;
    }
    return code == 0;
}

} // namespace VdCommon
