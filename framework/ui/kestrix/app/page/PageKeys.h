#pragma once

#include <windows.h>

class CPageCommands;

// Runs the command of a key that is pressed in a part of the page, with what is held down beside it now. False when the
// message is none.
bool RunPageKey(const MSG& message, CPageCommands& commands);
