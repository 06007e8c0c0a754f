#pragma once

#include "tests/fuzz/harness/Harnesses.h"

#include <algorithm>

namespace Fuzz
{

// The arguments of a program, one a line; none of an empty text.
inline std::vector<std::wstring> ArgumentsOf(std::wstring_view text)
{
    std::vector<std::wstring> arguments;
    while (!text.empty())
    {
        arguments.emplace_back(text.substr(0, text.find(L'\n')));
        text.remove_prefix(std::min(text.size(), arguments.back().size() + 1));
    }
    return arguments;
}

} // namespace Fuzz
