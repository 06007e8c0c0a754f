#pragma once

#include <windows.h>

#include <cstddef>
#include <cstring>
#include <stdexcept>

// The import entry of a function in a library of the system, for an ImportPatch of that library's calls. Throws
// std::runtime_error where the library does not import the function by its name.
template <class Function>
Function& ImportSlot(const wchar_t* library, const char* function)
{
    auto* const base = reinterpret_cast<std::byte*>(GetModuleHandleW(library));
    if (base == nullptr)
    {
        throw std::runtime_error("the library is not loaded");
    }
    const auto& dos = *reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto& headers = *reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos.e_lfanew);
    const DWORD imports = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    for (auto* import = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports); import->Name != 0; ++import)
    {
        auto* name = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + import->OriginalFirstThunk);
        auto* slot = reinterpret_cast<Function*>(base + import->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++slot)
        {
            const auto* const entry = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
            if (!IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal) && std::strcmp(entry->Name, function) == 0)
            {
                return *slot;
            }
        }
    }
    throw std::runtime_error("the library does not import the function");
}
