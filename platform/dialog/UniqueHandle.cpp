#include "platform/dialog/UniqueHandle.h"

namespace
{

constexpr void NoteHandle(HandleKind, int) noexcept {}

} // namespace

#include "platform/dialog/UniqueHandleInstances.h"
