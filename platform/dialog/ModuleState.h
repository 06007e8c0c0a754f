#pragma once

#include <windows.h>

#include <cstddef>
#include <span>

// The module of the running program.
HINSTANCE AfxGetInstanceHandle() noexcept;

// The module that texts, templates and images come from: the program's own until another is set.
HMODULE AfxGetResourceHandle() noexcept;

// Takes the texts and templates from this module from now on; null means the program's own again.
// The module stays the caller's and must stay loaded. Every text that LoadText gave out ends here.
void AfxSetResourceHandle(HMODULE module) noexcept;

// What the resource module holds under this number and type, RT_BITMAP or another; empty when it holds nothing there.
// It stays the module's.
std::span<const std::byte> GetResourceBytes(UINT id, const wchar_t* type) noexcept;
