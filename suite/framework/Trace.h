#pragma once

#include <string>

namespace Framework
{

// Sends a line about the service to the debugger output: it has no window, and nobody sees its console.
void Trace(const std::string& text);

} // namespace Framework
