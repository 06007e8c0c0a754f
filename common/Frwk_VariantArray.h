#pragma once

#include "common/Frwk_Variant.h"

#include <concepts>
#include <cstdint>
#include <string>

namespace Frwk::DataTypes
{

// The types that an element is read and written as. On the wire they are VT_BOOL, VT_UI2, VT_UI4, VT_UI1 and VT_BSTR.
template <class Value>
concept ElementValue = std::same_as<Value, bool> || std::same_as<Value, std::uint16_t> ||
    std::same_as<Value, std::uint32_t> || std::same_as<Value, std::uint8_t> || std::same_as<Value, std::wstring>;

// A one-dimensional SAFEARRAY of VARIANT, the form of every structured value of the service framework. The positions
// and types of its elements are the wire format; an index counts from 0. For the thread that made the object.
//
// The object owns nothing: who created the array calls DestroyArray before the object goes, and an attached array stays
// its owner's. No operation throws. A failure is traced and answered with false; arguments that are read into then keep
// what they held. An array of another form (dimensions, element type) is refused by every read and write.
class VariantArray
{
public:
    VariantArray() = default;
    VariantArray(const VariantArray&) = delete;
    VariantArray& operator=(const VariantArray&) = delete;
    virtual ~VariantArray() = default;

    // Makes an array of empty elements. Fails, and leaves the array, when one is held.
    bool CreateArray(std::uint32_t count);

    // Destroys the array, if one is held. Always true: an array that the platform refuses to destroy is still held.
    bool DestroyArray();

    // Takes an array without owning it. Fails when one is held.
    bool Attach(SAFEARRAY* lpSafeArray);

    // Null when none is held.
    SAFEARRAY* GetSafeArray() const noexcept { return m_lpSafeArray; }

    // For a call that answers with an array, in the place of the one that is held or of none.
    SAFEARRAY** GetSafeArrayAddress() noexcept { return &m_lpSafeArray; }

    // What CreateArray asked for or Attach found. A call by the address above leaves it as it was.
    const SAFEARRAYBOUND& GetBound() const noexcept { return m_bound; }

    // That of the array itself.
    std::uint32_t GetElementCount() const;

    // The type of the element must be exactly that of the value. Texts end at their first terminator.
    template <ElementValue Value>
    bool GetValue(Value& out, std::uint32_t index) const;
    template <ElementValue Value>
    bool SetValue(const Value& value, std::uint32_t index);

    // Reads an element that is an array, whatever its type. The copy is the caller's to destroy; the null array has
    // null as its copy.
    bool GetValueArray(SAFEARRAY** lpSafeArray, std::uint32_t index) const;

    // Makes the element a copy of the array, which stays the caller's.
    bool SetValueArray(SAFEARRAY* lpSafeArray, std::uint32_t index);

protected:
    // `element` must be empty.
    bool GetElement(Variant& element, std::uint32_t index) const;
    bool SetElement(Variant& element, std::uint32_t index);

private:
    SAFEARRAYBOUND m_bound{};
    SAFEARRAY* m_lpSafeArray = nullptr;
};

} // namespace Frwk::DataTypes
