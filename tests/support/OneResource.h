#pragma once

#include "tests/support/ImportPatch.h"

#include <windows.h>

#include <string_view>

extern "C" decltype(&::FindResourceW) __imp_FindResourceW;
extern "C" decltype(&::LoadResource) __imp_LoadResource;
extern "C" decltype(&::LockResource) __imp_LockResource;
extern "C" decltype(&::SizeofResource) __imp_SizeofResource;

// While it lives, every resource of every module that this program asks for is these bytes, which must outlive it. One
// at a time.
class OneResource
{
public:
    explicit OneResource(std::string_view bytes) { s_bytes = bytes; }

private:
    static HRSRC WINAPI Find(HMODULE, LPCWSTR, LPCWSTR) { return reinterpret_cast<HRSRC>(&s_bytes); }

    static HGLOBAL WINAPI Load(HMODULE, HRSRC) { return &s_bytes; }

    static LPVOID WINAPI Lock(HGLOBAL) { return const_cast<char*>(s_bytes.data()); }

    static DWORD WINAPI Size(HMODULE, HRSRC) { return static_cast<DWORD>(s_bytes.size()); }

    inline static std::string_view s_bytes;
    const ImportPatch<decltype(&::FindResourceW)> m_find{__imp_FindResourceW, &Find};
    const ImportPatch<decltype(&::LoadResource)> m_load{__imp_LoadResource, &Load};
    const ImportPatch<decltype(&::LockResource)> m_lock{__imp_LockResource, &Lock};
    const ImportPatch<decltype(&::SizeofResource)> m_size{__imp_SizeofResource, &Size};
};
