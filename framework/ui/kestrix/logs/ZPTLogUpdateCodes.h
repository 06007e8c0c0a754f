#pragma once

#include <cstdint>
#include <string_view>

// What the numbers in a line of the update log mean. All texts are those of the language file and outlive the records.
namespace UpdateCodes
{

// The step or the component that a line is about; empty for a group or an event that is not known.
std::wstring_view EventText(std::int32_t group, std::uint32_t event);

// An error of the update engine; empty for a code that is none, or one that the user need not know.
std::wstring_view EngineErrorText(std::uint32_t code);

// An error of the product around the update.
std::wstring_view ProductErrorText(std::uint32_t code);

} // namespace UpdateCodes
