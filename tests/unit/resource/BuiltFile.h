#pragma once

#include <windows.h>

#include <cstdint>
#include <span>
#include <string>

// The language file en-US of the build that this program lies in, loaded once as the viewer loads it.
// Throws std::runtime_error when it cannot be loaded.
HMODULE BuiltLanguageFile();

// A text of the language file; empty when it has none of this number.
std::wstring LanguageText(unsigned number);

// The bytes of a resource, owned by the module. Throws std::runtime_error when there is none.
std::span<const std::uint8_t> ResourceBytes(HMODULE module, unsigned number, const wchar_t* type);
