#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstring>
#include <string>

namespace Wire
{

// The bytes in the order of a number: the highest first.
inline std::wstring Hex(const BYTE* bytes, std::size_t count)
{
    std::wstring text;
    while (count-- > 0)
    {
        text += L"0123456789abcdef"[bytes[count] >> 4];
        text += L"0123456789abcdef"[bytes[count] & 15];
    }
    return text;
}

inline std::wstring TextOf(const SAFEARRAY* array);

// One element by its bytes: its type, and its number, its text in quotes, or the array in it.
inline std::wstring TextOfElement(const BYTE* element)
{
    VARTYPE type = VT_EMPTY;
    std::memcpy(&type, element, sizeof type);
    const BYTE* const content = element + 8;
    const void* pointer = nullptr;
    std::memcpy(&pointer, content, sizeof pointer);
    const std::wstring name = std::to_wstring(type) + L':';
    switch (type)
    {
    case VT_UI1:
        return name + Hex(content, 1);
    case VT_UI2:
    case VT_BOOL:
        return name + Hex(content, 2);
    case VT_UI4:
    case VT_I4:
        return name + Hex(content, 4);
    case VT_BSTR:
    {
        auto* const text = static_cast<OLECHAR*>(const_cast<void*>(pointer));
        return name + (text == nullptr ? L"null" : L"'" + std::wstring(text, ::SysStringLen(text)) + L"'");
    }
    case VT_ARRAY | VT_VARIANT:
        return name + TextOf(static_cast<const SAFEARRAY*>(pointer));
    default:
        return name;
    }
}

// An array of variants as a text, told from its bytes: "[18:0102 8:'text' 8204:[17:01 17:02]]".
inline std::wstring TextOf(const SAFEARRAY* array)
{
    std::wstring text;
    for (ULONG i = 0; i < array->rgsabound[0].cElements; ++i)
    {
        text += (i == 0 ? L"" : L" ") + TextOfElement(static_cast<const BYTE*>(array->pvData) + i * array->cbElements);
    }
    return L"[" + text + L"]";
}

} // namespace Wire
