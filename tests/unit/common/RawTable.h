#pragma once

#include <windows.h>

#include <cstddef>

// Calls the method at this position of an interface's table, counted from QueryInterface as 0, without its declaration.
template <class Result = HRESULT, class... Arguments>
Result CallSlot(void* object, std::size_t slot, Arguments... arguments)
{
    using Method = Result(STDMETHODCALLTYPE*)(void*, Arguments...);
    void* const* const table = *static_cast<void* const* const*>(object);
    return reinterpret_cast<Method>(table[slot])(object, arguments...);
}
