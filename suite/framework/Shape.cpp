#include "suite/framework/Shape.h"

#include <algorithm>

namespace Framework
{

namespace
{

bool IsBytes(const Value& value, std::size_t count)
{
    const List* const list = std::get_if<List>(&value);
    return list != nullptr && list->size() == count &&
           std::ranges::all_of(*list, [](const Value& byte) { return std::holds_alternative<std::uint8_t>(byte); });
}

bool Is(const Value& value, Element element)
{
    switch (element)
    {
    case Element::Bool:
        return std::holds_alternative<bool>(value);
    case Element::Word:
        return std::holds_alternative<std::uint16_t>(value);
    case Element::Number:
        return std::holds_alternative<std::uint32_t>(value);
    case Element::Text:
        return std::holds_alternative<std::wstring>(value);
    case Element::Bytes16:
        return IsBytes(value, 16);
    case Element::Bytes20:
        return IsBytes(value, 20);
    }
    return false;
}

} // namespace

bool HasShape(const List& list, std::span<const Element> elements)
{
    return std::ranges::equal(list, elements, Is);
}

std::size_t FirstMisfit(const List& list, std::span<const Element> elements)
{
    const auto misfit = std::ranges::find_if(list,
                                             [elements](const Value& value)
                                             {
                                                 const List* const record = std::get_if<List>(&value);
                                                 return record == nullptr || !HasShape(*record, elements);
                                             });
    return static_cast<std::size_t>(misfit - list.begin());
}

} // namespace Framework
