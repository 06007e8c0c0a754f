#pragma once

#include <windows.h>

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

inline constexpr wchar_t English[] = L"en-US";
inline constexpr wchar_t PseudoLanguage[] = L"qps-ploc"; // English with accents, longer; no product has it

// The languages of the build that this program lies in, and last the pseudo language.
std::vector<std::wstring> BuiltLanguages();

// Throws std::runtime_error when there is no such file.
std::filesystem::path BuiltLanguageFilePath(const std::wstring& language);

// A language file of the build, loaded once as the viewer loads it. Throws std::runtime_error when it cannot be loaded.
HMODULE BuiltLanguageFile(const std::wstring& language = English);

// A text of the language file; empty when it has none of this number.
std::wstring LanguageText(unsigned number, const std::wstring& language = English);

// The bytes of a resource, owned by the module. Throws std::runtime_error when there is none.
std::span<const std::uint8_t> ResourceBytes(HMODULE module, unsigned number, const wchar_t* type);
