#pragma once

#include "common/OrlDbMg.h"

#include <array>
#include <cstddef>

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
