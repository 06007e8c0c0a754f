#pragma once

#include "platform/dialog/UniqueHandle.h"

#include <string>

// The texts and images of the program, for the life of the object: a built language file becomes the resource module.
// Objects may be nested.
class LanguageFile
{
public:
    // The path is taken from the folder of the built program, in which tests run. Throws std::runtime_error when the
    // file cannot be opened.
    explicit LanguageFile(const std::wstring& path = L"resource\\en-US\\Kestrix.exe.mui");
    ~LanguageFile();
    LanguageFile(const LanguageFile&) = delete;
    LanguageFile& operator=(const LanguageFile&) = delete;

private:
    UniqueModule m_hModule;
    HMODULE m_hBefore;
};

// A text of the language file by its number. Throws std::runtime_error for one that is missing or empty, so that a
// comparison with it says something.
const std::wstring& Text(unsigned id);
