#pragma once

#include "suite/framework/Value.h"

#include <windows.h>

#include <oaidl.h>

#include <memory>
#include <optional>

namespace Framework
{

struct SafeArrayDestroyer
{
    void operator()(SAFEARRAY* array) const noexcept;
};

using UniqueSafeArray = std::unique_ptr<SAFEARRAY, SafeArrayDestroyer>;

// The elements of an array. Nothing when it is none of the framework's: null, of another element type than VARIANT, of
// another number of dimensions than one, not counted from 0, with an element of a type that values do not have, or with
// a text that has a terminator inside. A null text reads as an empty one.
std::optional<List> ReadArray(SAFEARRAY* array);

// An array with these elements; an empty text is an allocated one. Throws std::bad_alloc.
UniqueSafeArray MakeArray(const List& list);

} // namespace Framework
