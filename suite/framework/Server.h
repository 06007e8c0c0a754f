#pragma once

#include "suite/framework/CommandLine.h"

namespace Framework
{

// Is the service until nobody has used it for options.idle. Returns at once when another process is the service
// already. Throws an exception of std.
void Serve(const Options& options);

} // namespace Framework
