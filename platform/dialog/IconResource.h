#pragma once

#include "platform/dialog/UniqueHandle.h"

// Icons and cursors of the resource module, each a copy that its owner deletes. None when the module has no such image.

// In the size asked for, in pixels; the system picks the image that comes nearest and scales it.
UniqueIcon LoadIconImage(UINT id, SIZE size) noexcept;

// In the size of the system's cursors.
UniqueCursor LoadCursorImage(UINT id) noexcept;
