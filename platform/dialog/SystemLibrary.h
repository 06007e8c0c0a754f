#pragma once

#include <windows.h>

// LoadLibrary for a library of the system, named without a folder: it and all that it brings along come from the
// system's own folder. A file of that name beside the program or in the current folder is never looked at. Libraries
// that are loaded at the first call of one of their functions come in this way too.
HMODULE WINAPI LoadSystemLibrary(const wchar_t* fileName) noexcept;
