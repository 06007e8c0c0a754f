#pragma once

#include <windows.h>

#include <oleauto.h>

namespace Frwk::DataTypes
{

// A VARIANT and its content, which goes with it.
class Variant
{
public:
    Variant() noexcept { ::VariantInit(&m_value); }

    // A content that the platform does not know stays as it is: there is nothing in it to free.
    ~Variant() { ::VariantClear(&m_value); }

    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;

    VARIANT& operator*() noexcept { return m_value; }

    VARIANT* operator->() noexcept { return &m_value; }

    const VARIANT* operator->() const noexcept { return &m_value; }

    // The array in it, which stays its own; null when it holds none, or holds the null array.
    SAFEARRAY* Array() const noexcept
    {
        if ((m_value.vt & VT_ARRAY) == 0)
        {
            return nullptr;
        }
        if ((m_value.vt & VT_BYREF) == 0)
        {
            return m_value.parray;
        }
        return m_value.pparray == nullptr ? nullptr : *m_value.pparray;
    }

private:
    VARIANT m_value{};
};

} // namespace Frwk::DataTypes
