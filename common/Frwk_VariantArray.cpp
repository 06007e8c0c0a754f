#include "common/Frwk_VariantArray.h"

#include "common/VdCommon/VdComn_DebugLog.h"

#include <limits>
#include <new>

namespace Frwk::DataTypes
{

namespace
{

// How a value lies in a VARIANT: its type, the name of the type, and Load and Store, which return whether there was the
// memory for it.
template <ElementValue Value>
struct Element;

template <class Value, auto member>
struct NumberElement
{
    static bool Load(const VARIANT& element, Value& value) noexcept
    {
        value = static_cast<Value>(element.*member);
        return true;
    }

    static bool Store(VARIANT& element, const Value& value) noexcept
    {
        element.*member = value;
        return true;
    }
};

template <>
struct Element<std::uint8_t> : NumberElement<std::uint8_t, &VARIANT::bVal>
{
    static constexpr VARTYPE Type = VT_UI1;
    static constexpr wchar_t Name[] = L"VT_UI1";
};

template <>
struct Element<std::uint16_t> : NumberElement<std::uint16_t, &VARIANT::uiVal>
{
    static constexpr VARTYPE Type = VT_UI2;
    static constexpr wchar_t Name[] = L"VT_UI2";
};

template <>
struct Element<std::uint32_t> : NumberElement<std::uint32_t, &VARIANT::ulVal>
{
    static constexpr VARTYPE Type = VT_UI4;
    static constexpr wchar_t Name[] = L"VT_UI4";
};

template <>
struct Element<bool>
{
    static constexpr VARTYPE Type = VT_BOOL;
    static constexpr wchar_t Name[] = L"VT_BOOL";

    static bool Load(const VARIANT& element, bool& value) noexcept
    {
        value = element.boolVal == VARIANT_TRUE;
        return true;
    }

    static bool Store(VARIANT& element, bool value) noexcept
    {
        element.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
        return true;
    }
};

template <>
struct Element<std::wstring>
{
    static constexpr VARTYPE Type = VT_BSTR;
    static constexpr wchar_t Name[] = L"VT_BSTR";

    static bool Load(const VARIANT& element, std::wstring& value) noexcept
    {
        try
        {
            value.assign(element.bstrVal == nullptr ? L"" : element.bstrVal); // the null BSTR is an empty text
            return true;
        }
        catch (const std::bad_alloc&)
        {
            return false;
        }
    }

    static bool Store(VARIANT& element, const std::wstring& value) noexcept
    {
        element.bstrVal = ::SysAllocString(value.c_str());
        return element.bstrVal != nullptr;
    }
};

// The platform reads as many indices, and moves as many bytes, as the array says: of any other form they would be those
// of somebody else.
bool HoldsVariants(const SAFEARRAY& array) noexcept
{
    return array.cDims == 1 && (array.fFeatures & FADF_VARIANT) != 0 && array.cbElements == sizeof(VARIANT) &&
           array.pvData != nullptr;
}

void TraceFailedWrite(HRESULT result)
{
    VD_TRACE(Error, L"*** VariantArray::PutElement() - ::SafeArrayPutElement() failed. [%08x]", result);
}

} // namespace

bool VariantArray::CreateArray(std::uint32_t count)
{
    // The platform counts the bytes of an array in 32 bits, and some platforms do not look whether they suffice.
    constexpr std::uint32_t MaxCount = std::numeric_limits<std::uint32_t>::max() / sizeof(VARIANT);

    if (m_lpSafeArray != nullptr)
    {
        VD_TRACE(Error, L"*** VariantArray::CreateArray() - m_lpSafeArray was inavalid.");
        return false;
    }
    m_bound = {count, 0};
    m_lpSafeArray = count > MaxCount ? nullptr : ::SafeArrayCreate(VT_VARIANT, 1, &m_bound);
    if (m_lpSafeArray == nullptr)
    {
        VD_TRACE(Error, L"*** VariantArray::CreateArray() - ::SafeArrayCreate() failed.");
        return false;
    }
    return true;
}

bool VariantArray::DestroyArray()
{
    if (m_lpSafeArray == nullptr)
    {
        return true;
    }
    const HRESULT result = ::SafeArrayDestroy(m_lpSafeArray);
    if (FAILED(result))
    {
        VD_TRACE(Error, L"*** VariantArray::DestroyArray() - ::SafeArrayDestroy() failed. [%08x]", result);
        return true;
    }
    m_lpSafeArray = nullptr;
    return true;
}

bool VariantArray::Attach(SAFEARRAY* lpSafeArray)
{
    if (lpSafeArray == nullptr)
    {
        VD_TRACE(Error, L"*** VariantArray::Attach() - _lpSafeArray was invalid.");
        return false;
    }
    if (m_lpSafeArray != nullptr)
    {
        VD_TRACE(Error, L"*** VariantArray::Attach() - this->m_lpSafeArray was invalid.");
        return false;
    }
    m_bound = lpSafeArray->rgsabound[0];
    m_lpSafeArray = lpSafeArray;
    return true;
}

std::uint32_t VariantArray::GetElementCount() const
{
    if (m_lpSafeArray == nullptr)
    {
        VD_TRACE(Error, L"*** VariantArray::GetElementCount() - this->m_lpSafeArray was invalid.");
        return 0;
    }
    return m_lpSafeArray->rgsabound[0].cElements;
}

bool VariantArray::GetElement(Variant& element, std::uint32_t index) const
{
    if (m_lpSafeArray == nullptr)
    {
        VD_TRACE(Error, L"*** VariantArray::GetElement() - this->m_lpSafeArray was invalid.");
        return false;
    }
    auto position = static_cast<LONG>(index);
    const HRESULT result = HoldsVariants(*m_lpSafeArray) ? ::SafeArrayGetElement(m_lpSafeArray, &position, &*element)
                                                         : DISP_E_TYPEMISMATCH;
    if (FAILED(result))
    {
        VD_TRACE(Error, L"*** VariantArray::GetElement() - ::SafeArrayGetElement() failed. [%08x]", result);
        return false;
    }
    return true;
}

bool VariantArray::SetElement(Variant& element, std::uint32_t index)
{
    if (m_lpSafeArray == nullptr)
    {
        VD_TRACE(Error, L"*** VariantArray::SetElement() - this->m_lpSafeArray was invalid.");
        return false;
    }
    auto position = static_cast<LONG>(index);
    const HRESULT result = HoldsVariants(*m_lpSafeArray) ? ::SafeArrayPutElement(m_lpSafeArray, &position, &*element)
                                                         : DISP_E_TYPEMISMATCH;
    if (FAILED(result))
    {
        TraceFailedWrite(result);
        return false;
    }
    return true;
}

template <ElementValue Value>
bool VariantArray::GetValue(Value& out, std::uint32_t index) const
{
    Variant element;
    if (!GetElement(element, index))
    {
        return false;
    }
    if (element->vt != Element<Value>::Type)
    {
        VD_TRACE(Error, L"*** VariantArray::GetValue() - Specified element was not %s.", Element<Value>::Name);
        return false;
    }
    return Element<Value>::Load(*element, out);
}

template <ElementValue Value>
bool VariantArray::SetValue(const Value& value, std::uint32_t index)
{
    Variant element;
    if (!Element<Value>::Store(*element, value))
    {
        TraceFailedWrite(E_OUTOFMEMORY);
        return false;
    }
    element->vt = Element<Value>::Type;
    return SetElement(element, index);
}

template bool VariantArray::GetValue(bool&, std::uint32_t) const;
template bool VariantArray::GetValue(std::uint16_t&, std::uint32_t) const;
template bool VariantArray::GetValue(std::uint32_t&, std::uint32_t) const;
template bool VariantArray::GetValue(std::uint8_t&, std::uint32_t) const;
template bool VariantArray::GetValue(std::wstring&, std::uint32_t) const;
template bool VariantArray::SetValue(const bool&, std::uint32_t);
template bool VariantArray::SetValue(const std::uint16_t&, std::uint32_t);
template bool VariantArray::SetValue(const std::uint32_t&, std::uint32_t);
template bool VariantArray::SetValue(const std::uint8_t&, std::uint32_t);
template bool VariantArray::SetValue(const std::wstring&, std::uint32_t);

bool VariantArray::GetValueArray(SAFEARRAY** lpSafeArray, std::uint32_t index) const
{
    if (lpSafeArray == nullptr)
    {
        VD_TRACE(Error, L"*** VariantArray::GetValueArray() - _lpSafeArray was invalid.");
        return false;
    }
    Variant element;
    if (!GetElement(element, index))
    {
        return false;
    }
    if ((element->vt & VT_ARRAY) == 0)
    {
        VD_TRACE(Error, L"*** VariantArray::GetValueArray() - Specified element was not VT_ARRAY.");
        return false;
    }
    SAFEARRAY* copy = nullptr;
    const HRESULT result = ::SafeArrayCopy(element.Array(), &copy);
    if (FAILED(result))
    {
        VD_TRACE(Error, L"*** VariantArray::GetValueArray() - ::SafeArrayCopy() failed. [%08x]", result);
        return false;
    }
    *lpSafeArray = copy;
    return true;
}

bool VariantArray::SetValueArray(SAFEARRAY* lpSafeArray, std::uint32_t index)
{
    if (lpSafeArray == nullptr)
    {
        VD_TRACE(Error, L"*** VariantArray::SetValueArray() - _lpSafeArray was invalid.");
        return false;
    }
    VARTYPE type = VT_EMPTY;
    const HRESULT result = ::SafeArrayGetVartype(lpSafeArray, &type);
    if (FAILED(result))
    {
        VD_TRACE(Error, L"*** VariantArray::SetValueArray() - ::SafeArrayGetVartype() failed. [0x%08x]", result);
        return false;
    }
    Variant element;
    element->vt = static_cast<VARTYPE>(VT_ARRAY | type);
    element->parray = lpSafeArray;
    const bool written = SetElement(element, index);
    element->vt = VT_NULL; // the array is the caller's
    return written;
}

} // namespace Frwk::DataTypes
