#pragma once

#include "common/VdCommon/VdComn_DynLib.h"

#include <string>

// The user's documents folder, where the export dialog opens: at most 259 characters, empty when nobody knows it.
// load: loads the system's library that knows it; without that library the registry is asked.
std::wstring DocumentsFolder(VdCommon::DynLib::LoadFunction load = ::LoadSystemLibrary);

// The path with the extension of the dialog's filter, counted from 1. A path that has an extension keeps it, and so
// does one with an index that no filter has.
std::wstring WithFilterExtension(std::wstring path, DWORD filterIndex);

// The path with the extension of the dialog's filter in the letters of that filter, when it ends in it. The system's
// dialog adds it before the program can: Windows as the filter's pattern spells it, Wine in small letters.
std::wstring WithExtensionSpelt(std::wstring path, DWORD filterIndex);
