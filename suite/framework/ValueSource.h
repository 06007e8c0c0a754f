#pragma once

#include "suite/framework/Value.h"

#include <windows.h>

namespace Framework
{

// The framework's success.
inline constexpr HRESULT Success = 0x00040200;

// What is said of a value or command that there is not.
inline constexpr HRESULT Unknown = static_cast<HRESULT>(0x80070490); // ERROR_NOT_FOUND

// The values behind an interface of the framework. Any thread may use it. Failures of the disk or of the memory leave
// as exceptions.
class ValueSource
{
public:
    virtual ~ValueSource() = default;

    // Success with the value, or Unknown with the list as it was.
    virtual HRESULT Query(const ValueKey& key, List& list) const = 0;

    // Success, Unknown, E_INVALIDARG for a list of another shape than the value's, or E_ACCESSDENIED for a value that
    // nobody can set; the value is as it was after all but the first.
    virtual HRESULT Set(const ValueKey& key, const List& list) = 0;
};

} // namespace Framework
