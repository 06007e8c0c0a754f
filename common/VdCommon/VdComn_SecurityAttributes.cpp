#include "common/VdCommon/VdComn_SecurityAttributes.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <source_location>
#include <utility>

namespace VdCommon
{

namespace
{

// A SID with room for two subauthorities: the system reads as many as `count` says.
struct AccountSid
{
    BYTE revision;
    BYTE count;
    SID_IDENTIFIER_AUTHORITY authority;
    DWORD subAuthority[2];
};

static_assert(offsetof(AccountSid, count) == offsetof(SID, SubAuthorityCount) &&
              offsetof(AccountSid, authority) == offsetof(SID, IdentifierAuthority) &&
              offsetof(AccountSid, subAuthority) == offsetof(SID, SubAuthority));

constexpr AccountSid Accounts[] = {
    {SID_REVISION, 2, SECURITY_NT_AUTHORITY, {SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_ADMINS}},
    {SID_REVISION, 2, SECURITY_NT_AUTHORITY, {SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_POWER_USERS}},
    {SID_REVISION, 1, SECURITY_NT_AUTHORITY, {SECURITY_LOCAL_SYSTEM_RID}},
    {SID_REVISION, 1, SECURITY_NT_AUTHORITY, {SECURITY_AUTHENTICATED_USER_RID}},
    {SID_REVISION, 2, SECURITY_NT_AUTHORITY, {SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_USERS}},
    {SID_REVISION, 1, SECURITY_NT_AUTHORITY, {SECURITY_INTERACTIVE_RID}},
    {SID_REVISION, 1, SECURITY_CREATOR_SID_AUTHORITY, {SECURITY_CREATOR_OWNER_RID}},
};

static_assert(std::size(Accounts) == std::tuple_size_v<AccessControl::Masks>);

struct KindRow
{
    std::uint32_t kind;
    AccessControl::Masks masks;
};

constexpr AccessControl::Masks SameForAll(ACCESS_MASK mask)
{
    return {mask, mask, mask, mask, mask, mask, mask};
}

// The columns are the accounts in their order. Nothing is known of objects of the kinds 3, 7 and 8.
// clang-format off
constexpr KindRow Kinds[] = {
    { 0, {0x13013F, 0x12002F, 0x13013F, 0x120029, 0x120029, 0x120029, 0x1F01FF}},
    { 1, {0x1100C7, 0x100087, 0x1100C7, 0x100081, 0x100081, 0x100081, 0x1F01FF}},
    { 2, {0x0101F7, 0x00018D, 0x0001F5, 0x000185, 0x000185, 0x000185, 0x0F01FF}},
    { 4, {0x01003F, 0x00003F, 0x01003F, 0x020009, 0x020009, 0x020009, 0x0F003F}},
    { 5, {0x101FFB, 0x101E92, 0x101FFB, 0x101410, 0x101410, 0x101410, 0x1F1FFF}},
    { 6, {0x1000FB, 0x10006A, 0x1000FB, 0x100048, 0x100048, 0x100048, 0x1F03FB}},
    { 9, SameForAll(0x100002)},
    {10, SameForAll(0x1F0003)},
    {11, SameForAll(0x100001)},
    {12, SameForAll(0x1F0001)},
};

// clang-format on

void Require(BOOL done, const std::source_location& where = std::source_location::current())
{
    if (!done)
    {
        throw new AccessControl::Exception(::GetLastError(), where);
    }
}

// The copy of a descriptor that depends on no other memory.
ByteArray SelfRelative(SECURITY_DESCRIPTOR& absolute)
{
    DWORD size = 0;
    ::MakeSelfRelativeSD(&absolute, nullptr, &size); // fails, and tells the size
    ByteArray copy;
    if (std::uint32_t error = 0; !copy.Allocate(size, &error))
    {
        throw new AccessControl::Exception(error);
    }
    Require(::MakeSelfRelativeSD(&absolute, copy.Data(), &size));
    return copy;
}

ByteArray MakeDescriptor(const AccessControl::Masks& masks)
{
    constexpr DWORD EntrySize = offsetof(ACCESS_ALLOWED_ACE, SidStart) + sizeof(AccountSid);
    constexpr DWORD ListSize = sizeof(ACL) + std::size(Accounts) * EntrySize;
    alignas(ACL) std::byte room[ListSize];
    const auto list = reinterpret_cast<ACL*>(room);
    Require(::InitializeAcl(list, ListSize, ACL_REVISION));
    for (std::size_t index = 0; index < masks.size(); ++index)
    {
        AccountSid account = Accounts[index];
        Require(::AddAccessAllowedAce(list, ACL_REVISION, masks[index], &account));
    }
    SECURITY_DESCRIPTOR descriptor;
    Require(::InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION));
    Require(::SetSecurityDescriptorDacl(&descriptor, TRUE, list, FALSE));
    return SelfRelative(descriptor);
}

} // namespace

const AccessControl::Masks& AccessControl::MasksOf(std::uint32_t kind)
{
    const auto row =
        std::find_if(std::begin(Kinds), std::end(Kinds), [kind](const KindRow& r) { return r.kind == kind; });
    if (row == std::end(Kinds))
    {
        throw new Exception(ERROR_NOT_SUPPORTED);
    }
    return row->masks;
}

SecurityAttributes::SecurityAttributes(std::uint32_t kind, bool inherit) noexcept : m_nKind(kind), m_bInherit(inherit)
{
    try
    {
        m_descriptor = MakeDescriptor(AccessControl::MasksOf(kind));
        m_attributes = {sizeof m_attributes, m_descriptor.Data(), inherit};
    }
    catch (VdCommon::Exception::Base* thrown)
    {
        const VdCommon::Exception::Caught caught(thrown);
    }
    catch (...)
    {
        // Default protection is better than no object.
    }
}

} // namespace VdCommon
