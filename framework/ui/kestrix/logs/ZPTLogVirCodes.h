#pragma once

#include <cstdint>
#include <string_view>

// What the numbers in a line of the virus log mean. All texts are those of the language file and literals, and outlive
// the records.
namespace VirusCodes
{

// What was found, as far as texts depend on it.
struct Event
{
    std::uint32_t source; // who found it
    std::uint32_t type;   // of the object that it was found in
};

// What an action came to, and the icon that says so.
struct Outcome
{
    std::wstring_view text; // empty for an unknown action
    std::uint32_t image;
};

Outcome FirstOutcome(const Event& event, std::uint32_t action, std::uint32_t result);
Outcome SecondOutcome(const Event& event, std::uint32_t action, std::uint32_t result);

// Whether a second action was tried at all: only after a first one that can fail for want of a cure.
bool SecondActionCounts(std::uint32_t firstAction, std::uint32_t firstResult);

} // namespace VirusCodes
