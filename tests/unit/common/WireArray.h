#pragma once

#include <windows.h>

#include <oleauto.h>

#include <algorithm>
#include <cstring>
#include <initializer_list>
#include <span>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

// Arrays as the service framework writes them, made and looked at by their bytes.

// A SAFEARRAY, destroyed with the object.
class OwnedArray
{
public:
    explicit OwnedArray(SAFEARRAY* array = nullptr) : m_array(array) {}

    OwnedArray(VARTYPE type, std::initializer_list<SAFEARRAYBOUND> bounds)
        : m_array(
              ::SafeArrayCreate(type, static_cast<UINT>(bounds.size()), const_cast<SAFEARRAYBOUND*>(bounds.begin())))
    {
        if (m_array == nullptr)
        {
            throw std::runtime_error("the array of a test could not be made");
        }
    }

    // Of variants, whose content it takes over.
    explicit OwnedArray(std::span<const VARIANT> elements)
        : OwnedArray(VT_VARIANT, {{static_cast<ULONG>(elements.size()), 0}})
    {
        std::ranges::copy(elements, static_cast<VARIANT*>(m_array->pvData));
    }

    OwnedArray(std::initializer_list<VARIANT> elements) : OwnedArray(std::span(elements.begin(), elements.size())) {}

    OwnedArray(OwnedArray&& other) noexcept : m_array(other.Release()) {}

    OwnedArray& operator=(OwnedArray&& other) noexcept
    {
        std::swap(m_array, other.m_array);
        return *this;
    }

    ~OwnedArray() { ::SafeArrayDestroy(m_array); }

    SAFEARRAY* Get() const { return m_array; }

    SAFEARRAY* Release() { return std::exchange(m_array, nullptr); }

    SAFEARRAY* operator->() const { return m_array; }

private:
    SAFEARRAY* m_array;
};

namespace Wire
{

inline VARIANT Value(VARTYPE type, ULONGLONG content)
{
    VARIANT value{};
    value.vt = type;
    value.ullVal = content;
    return value;
}

inline VARIANT Number(ULONG number)
{
    return Value(VT_UI4, number);
}

inline VARIANT Text(const std::wstring& text)
{
    return Value(VT_BSTR,
                 reinterpret_cast<ULONGLONG>(::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))));
}

// Takes the array over.
inline VARIANT Array(OwnedArray array, VARTYPE type = VT_ARRAY | VT_VARIANT)
{
    return Value(type, reinterpret_cast<ULONGLONG>(array.Release()));
}

// The type of an element and `size` bytes of its content, as they lie in the array.
inline std::vector<BYTE> Bytes(const SAFEARRAY* array, std::size_t index, std::size_t size)
{
    const auto* const element = static_cast<const BYTE*>(array->pvData) + index * array->cbElements;
    std::vector<BYTE> bytes(element, element + sizeof(VARTYPE));
    bytes.insert(bytes.end(), element + 8, element + 8 + size);
    return bytes;
}

// The array or text that an element points to.
template <class Content>
Content* Pointer(const SAFEARRAY* array, std::size_t index)
{
    Content* content = nullptr;
    std::memcpy(&content, static_cast<const BYTE*>(array->pvData) + index * array->cbElements + 8, sizeof content);
    return content;
}

// All of a text, terminators inside it too.
inline std::wstring TextAt(const SAFEARRAY* array, std::size_t index)
{
    wchar_t* const text = Pointer<wchar_t>(array, index);
    return std::wstring(text, ::SysStringLen(text));
}

} // namespace Wire
