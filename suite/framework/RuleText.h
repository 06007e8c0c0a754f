#pragma once

#include "suite/framework/Value.h"

#include <stdexcept>
#include <string>
#include <string_view>

namespace Framework
{

// A text with lines that are no rules; what() has a line for each of the first of them: its number and what is wrong.
class BadRules : public std::runtime_error
{
    using std::runtime_error::runtime_error;
};

// Firewall rules as a table for people, in UTF-8. The comment on top tells the form.
std::string RulesText(const List& rules);

// The rules of such a text, which a person may also have written, in UTF-8 with either end of a line. Throws BadRules
// when there is a line that is none.
List ParseRules(std::string_view text);

} // namespace Framework
