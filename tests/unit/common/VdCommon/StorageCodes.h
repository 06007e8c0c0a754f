#pragma once

#include "common/VdCommon/VdComn_Storage.h"

#include <cstdint>
#include <memory>

// The code of the Storage::Exception that the operation throws, which is destroyed; 0 when it throws none.
template <class Operation>
std::uint32_t ThrownCode(Operation operation)
{
    try
    {
        operation();
    }
    catch (VdCommon::Storage::Exception* thrown)
    {
        return std::unique_ptr<VdCommon::Storage::Exception>(thrown)->Code();
    }
    return 0;
}
