#pragma once

#include <new>
#include <utility>

namespace Frwk::DataTypes
{

// Puts the value at the end of the list; false where the memory is missing.
template <class List>
bool Append(List& list, typename List::value_type&& value) noexcept
{
    try
    {
        list.push_back(std::move(value));
        return true;
    }
    catch (const std::bad_alloc&)
    {
        return false;
    }
}

} // namespace Frwk::DataTypes
