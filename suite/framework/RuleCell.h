#pragma once

#include "suite/framework/Shape.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace Framework
{

// What people call some of the numbers of an element.
struct NumberName
{
    std::wstring_view name;
    std::uint32_t number;
};

using NumberNames = std::span<const NumberName>;

// An element of a rule as a word of a line: a number or its name, a text as WordOf writes it, or hexadecimal digits.
std::wstring CellOf(const Value& value, NumberNames names);

// The element that a word, as SplitWords returns it, stands for; nothing when it stands for none.
std::optional<Value> ReadCell(const std::wstring& word, Element element, NumberNames names);

// What may stand there.
std::string AllowedInCell(Element element, NumberNames names);

} // namespace Framework
