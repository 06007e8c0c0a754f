#pragma once

#include "suite/framework/CommandLine.h"

namespace Framework
{

// Enters this program into the registry as the service, with the idle time and the limit of the options, and has the
// library with the proxies and stubs, which lies beside it, enter itself. Throws std::system_error.
void RegisterServer(const Options& options);

// Takes all of that out of the registry; fine when it was never there. Throws std::system_error.
void UnregisterServer();

} // namespace Framework
