#pragma once

// Takes away what a run that was killed left in the registry and running: a folder of its own as the installed one, the
// values beside it, and the service. Where something else is installed nothing happens. Returns whether there was
// anything.
bool RemoveLeftovers();
