#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace Framework
{

struct Value;

// A structured value: its elements have a position and a type, no name.
using List = std::vector<Value>;

using ValueAlternatives = std::variant<bool, std::uint8_t, std::uint16_t, std::uint32_t, std::wstring, List>;

// One element. The alternatives stand for VT_BOOL, VT_UI1, VT_UI2, VT_UI4, VT_BSTR and a nested array of VARIANT.
struct Value : ValueAlternatives
{
    using ValueAlternatives::ValueAlternatives;

    // The library's own copying calls whatever it finds when memory runs out in it: it destroys an alternative that was
    // never there, since those of this variant count as always there.
    Value(const Value& other)
        : ValueAlternatives(std::visit([](const auto& part) { return ValueAlternatives(part); },
                                       static_cast<const ValueAlternatives&>(other)))
    {
    }

    Value(Value&&) = default;

    Value& operator=(const Value& other) { return *this = Value(other); }

    Value& operator=(Value&&) = default;
};

// What names a value: its type and sub type.
struct ValueKey
{
    std::uint32_t type;
    std::uint32_t subType;

    auto operator<=>(const ValueKey&) const = default;
};

// Lists may lie in one another this deep; every value of the framework does with less.
inline constexpr int DeepestList = 8;

} // namespace Framework
