#pragma once

#include "platform/dialog/ComPtr.h"
#include "platform/dialog/UniqueHandleMembers.h"

// The owners of all kinds. One source of a program includes this: that of the library dialog, whose NoteHandle does
// nothing, or in a test program tests/support/LiveHandles.cpp, which counts.

template class UniqueHandle<HandleKinds::Gdi<HBITMAP, HandleKind::Bitmap>>;
template class UniqueHandle<HandleKinds::Gdi<HBRUSH, HandleKind::Brush>>;
template class UniqueHandle<HandleKinds::Gdi<HFONT, HandleKind::Font>>;
template class UniqueHandle<HandleKinds::Gdi<HPEN, HandleKind::Pen>>;
template class UniqueHandle<HandleKinds::Gdi<HRGN, HandleKind::Region>>;
template class UniqueHandle<HandleKinds::Gdi<HPALETTE, HandleKind::Palette>>;
template class UniqueHandle<HandleKinds::MemoryDC>;
template class UniqueHandle<HandleKinds::Icon>;
template class UniqueHandle<HandleKinds::Cursor>;
template class UniqueHandle<HandleKinds::ImageList>;
template class UniqueHandle<HandleKinds::Menu>;
template class UniqueHandle<HandleKinds::Memory>;
template class UniqueHandle<HandleKinds::Window>;
template class UniqueHandle<HandleKinds::Module>;
template class UniqueHandle<HandleKinds::RegistryKey>;
template class UniqueHandle<HandleKinds::Kernel>;
template class UniqueHandle<HandleKinds::File>;
template class UniqueHandle<HandleKinds::Find>;
template class UniqueHandle<HandleKinds::Interface>;
