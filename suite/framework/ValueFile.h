#pragma once

#include "suite/framework/Value.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace Framework
{

using Values = std::map<ValueKey, List>;

// The contents of a file with these values: a mark, their number, each with its key, and a check sum at the end.
// Numbers lie with their low byte first.
std::string FileBytes(const Values& values);

// The values of such a file; nothing when a byte of it is missing, too many or not what was written.
std::optional<Values> ParseFile(std::string_view bytes);

} // namespace Framework
