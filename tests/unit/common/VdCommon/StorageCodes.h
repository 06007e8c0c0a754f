#pragma once

#include "common/VdCommon/VdComn_Storage.h"

#include <cstdint>

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
        const VdCommon::Exception::Caught caught(thrown);
        return caught->Code();
    }
    return 0;
}
