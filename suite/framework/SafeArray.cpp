#include "suite/framework/SafeArray.h"

#include <oleauto.h>

#include <new>
#include <span>

namespace Framework
{

namespace
{

// The elements of an array of one dimension, while the object lives. The constructor throws std::bad_alloc.
class ElementAccess
{
public:
    explicit ElementAccess(SAFEARRAY* array) : m_pArray(array)
    {
        if (FAILED(SafeArrayAccessData(array, &m_pData)))
        {
            throw std::bad_alloc();
        }
    }

    ~ElementAccess() { SafeArrayUnaccessData(m_pArray); }

    ElementAccess(const ElementAccess&) = delete;
    ElementAccess& operator=(const ElementAccess&) = delete;

    std::span<VARIANT> Elements() const { return {static_cast<VARIANT*>(m_pData), m_pArray->rgsabound[0].cElements}; }

private:
    SAFEARRAY* m_pArray;
    void* m_pData = nullptr;
};

std::optional<List> ReadList(SAFEARRAY* array, int depth);

// Any other number would not come back as it came.
bool IsBool(VARIANT_BOOL value)
{
    return value == VARIANT_TRUE || value == VARIANT_FALSE;
}

std::optional<Value> ReadElement(const VARIANT& element, int depth)
{
    switch (element.vt)
    {
    case VT_BOOL:
        return IsBool(element.boolVal) ? std::optional<Value>(element.boolVal == VARIANT_TRUE) : std::nullopt;
    case VT_UI1:
        return Value(std::uint8_t{element.bVal});
    case VT_UI2:
        return Value(std::uint16_t{element.uiVal});
    case VT_UI4:
        return Value(static_cast<std::uint32_t>(element.ulVal));
    case VT_BSTR:
    {
        std::wstring text(element.bstrVal != nullptr ? element.bstrVal : L"", SysStringLen(element.bstrVal));
        const bool isWhole = text.find(L'\0') == std::wstring::npos &&
                             SysStringByteLen(element.bstrVal) == text.size() * sizeof(wchar_t);
        return isWhole ? std::optional<Value>(std::move(text)) : std::nullopt;
    }
    case VT_ARRAY | VT_VARIANT:
        if (std::optional<List> list = ReadList(element.parray, depth + 1))
        {
            return Value(std::move(*list));
        }
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

// Whether it is one dimension of VARIANT from 0 on.
bool IsList(SAFEARRAY* array)
{
    VARTYPE type = VT_EMPTY;
    return array != nullptr && SafeArrayGetDim(array) == 1 && SUCCEEDED(SafeArrayGetVartype(array, &type)) &&
           type == VT_VARIANT && array->rgsabound[0].lLbound == 0;
}

std::optional<List> ReadList(SAFEARRAY* array, int depth)
{
    if (depth > DeepestList || !IsList(array))
    {
        return std::nullopt;
    }
    const ElementAccess access(array);
    List list;
    list.reserve(access.Elements().size());
    for (const VARIANT& element : access.Elements())
    {
        std::optional<Value> value = ReadElement(element, depth);
        if (!value)
        {
            return std::nullopt;
        }
        list.push_back(std::move(*value));
    }
    return list;
}

// Fills an empty element of an array, which destroys it.
struct ElementWriter
{
    void operator()(bool value) const { Set(VT_BOOL).boolVal = value ? VARIANT_TRUE : VARIANT_FALSE; }

    void operator()(std::uint8_t value) const { Set(VT_UI1).bVal = value; }

    void operator()(std::uint16_t value) const { Set(VT_UI2).uiVal = value; }

    void operator()(std::uint32_t value) const { Set(VT_UI4).ulVal = value; }

    void operator()(const std::wstring& value) const
    {
        const BSTR text = SysAllocStringLen(value.data(), static_cast<UINT>(value.size()));
        if (text == nullptr)
        {
            throw std::bad_alloc();
        }
        Set(VT_BSTR).bstrVal = text;
    }

    void operator()(const List& value) const
    {
        SAFEARRAY* const array = MakeArray(value).release();
        Set(VT_ARRAY | VT_VARIANT).parray = array;
    }

    VARIANT& Set(VARTYPE type) const
    {
        element.vt = type;
        return element;
    }

    VARIANT& element;
};

} // namespace

void SafeArrayDestroyer::operator()(SAFEARRAY* array) const noexcept
{
    SafeArrayDestroy(array);
}

std::optional<List> ReadArray(SAFEARRAY* array)
{
    return ReadList(array, 1);
}

UniqueSafeArray MakeArray(const List& list)
{
    UniqueSafeArray array(SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(list.size())));
    if (!array)
    {
        throw std::bad_alloc();
    }
    const ElementAccess access(array.get());
    VARIANT* element = access.Elements().data();
    for (const Value& value : list)
    {
        std::visit(ElementWriter{*element++}, static_cast<const ValueAlternatives&>(value));
    }
    return array;
}

} // namespace Framework
