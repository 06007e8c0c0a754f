#pragma once

#include "common/OrlDbMg.h"

namespace OrlDbMg
{

// The status of the exception that is being handled: negative, and one for each way in which a database fails that
// somebody can do something about. Called in a catch block alone.
HRESULT StatusOfException() noexcept;

// The result of the work, or the status of what it throws.
template <class Work>
HRESULT WithoutExceptions(Work work) noexcept
{
    try
    {
        return work();
    }
    catch (...)
    {
        return StatusOfException();
    }
}

} // namespace OrlDbMg
