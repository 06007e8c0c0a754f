#pragma once

#include "common/VdCommon/VdComn_ByteArray.h"
#include "common/VdCommon/VdComn_Exception.h"

#include <windows.h>

#include <array>
#include <cstdint>

namespace VdCommon
{

namespace AccessControl
{

// Thrown when an access list cannot be made: code 50 for a kind without one, else the platform's.
class Exception : public VdCommon::Exception::Coded
{
public:
    using Coded::Coded;
};

// The rights of the seven accounts that every access list names, in the order of its entries: Administrators,
// Power Users, the local system, Authenticated Users, Users, Interactive, Creator Owner.
using Masks = std::array<ACCESS_MASK, 7>;

// What the accounts get on an object of the kind. Throws Exception* (50) for a kind that is not supported.
const Masks& MasksOf(std::uint32_t kind);

} // namespace AccessControl

// The protection of a kernel object or registry key that is about to be created, chosen by the kind of object.
// Making one never fails: a kind that is not supported has no descriptor and gives the platform's default protection.
class SecurityAttributes
{
public:
    static constexpr std::uint32_t RegistryKey = 4;
    static constexpr std::uint32_t ExclusiveMutex = 11;
    static constexpr std::uint32_t SharedMutex = 12;
    static constexpr std::uint32_t PlatformDefault = 18;

    // inherit: whether child processes inherit the handle of what is created.
    SecurityAttributes(std::uint32_t kind, bool inherit) noexcept;
    SecurityAttributes(const SecurityAttributes&) = delete;
    SecurityAttributes& operator=(const SecurityAttributes&) = delete;

    // What goes into the create call: belongs to this object, null for PlatformDefault. All zero where the kind is
    // not supported, whatever was asked for `inherit`.
    SECURITY_ATTRIBUTES* Get() noexcept { return m_nKind == PlatformDefault ? nullptr : &m_attributes; }

    std::uint32_t Kind() const noexcept { return m_nKind; }

    bool Inherit() const noexcept { return m_bInherit; }

private:
    SECURITY_ATTRIBUTES m_attributes{};
    ByteArray m_descriptor; // self-relative
    std::uint32_t m_nKind;
    bool m_bInherit;
};

} // namespace VdCommon
