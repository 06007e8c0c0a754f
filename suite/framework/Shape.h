#pragma once

#include "suite/framework/Value.h"

#include <span>

namespace Framework
{

// What an element of a record must be.
enum class Element
{
    Bool,
    Word,   // 16 bits
    Number, // 32 bits
    Text,
    Bytes16, // a list of as many bytes
    Bytes20,
};

// Whether the list has exactly these elements.
bool HasShape(const List& list, std::span<const Element> elements);

// The place of the first element that is no list of this shape; the size of the list when there is none.
std::size_t FirstMisfit(const List& list, std::span<const Element> elements);

} // namespace Framework
