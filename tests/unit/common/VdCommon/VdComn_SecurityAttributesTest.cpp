#include "common/VdCommon/VdComn_SecurityAttributes.h"

#include "platform/dialog/UniqueHandle.h"
#include "tests/unit/common/VdCommon/AccessList.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <malloc.h>

#include <string>
#include <vector>

namespace
{

using VdCommon::SecurityAttributes;
using VdCommon::AccessControl::MasksOf;

struct Kind
{
    std::uint32_t number;
    ACCESS_MASK masks[7];
};

std::vector<AccessEntry> Expected(const Kind& kind)
{
    const char* const accounts[] = {"S-1-5-32-544", "S-1-5-32-547", "S-1-5-18", "S-1-5-11",
                                    "S-1-5-32-545", "S-1-5-4",      "S-1-3-0"};
    std::vector<AccessEntry> entries;
    for (int index = 0; index < 7; ++index)
    {
        entries.push_back({accounts[index], kind.masks[index]});
    }
    return entries;
}

constexpr Kind RegistryKeyKind = {4, {0x1003F, 0x3F, 0x1003F, 0x20009, 0x20009, 0x20009, 0xF003F}};
constexpr Kind ExclusiveKind = {11, {0x100001, 0x100001, 0x100001, 0x100001, 0x100001, 0x100001, 0x100001}};
constexpr Kind SharedKind = {12, {0x1F0001, 0x1F0001, 0x1F0001, 0x1F0001, 0x1F0001, 0x1F0001, 0x1F0001}};

constexpr Kind SupportedKinds[] = {
    {0, {0x13013F, 0x12002F, 0x13013F, 0x120029, 0x120029, 0x120029, 0x1F01FF}},
    {1, {0x1100C7, 0x100087, 0x1100C7, 0x100081, 0x100081, 0x100081, 0x1F01FF}},
    {2, {0x101F7, 0x18D, 0x1F5, 0x185, 0x185, 0x185, 0xF01FF}},
    RegistryKeyKind,
    {5, {0x101FFB, 0x101E92, 0x101FFB, 0x101410, 0x101410, 0x101410, 0x1F1FFF}},
    {6, {0x1000FB, 0x10006A, 0x1000FB, 0x100048, 0x100048, 0x100048, 0x1F03FB}},
    {9, {0x100002, 0x100002, 0x100002, 0x100002, 0x100002, 0x100002, 0x100002}},
    {10, {0x1F0003, 0x1F0003, 0x1F0003, 0x1F0003, 0x1F0003, 0x1F0003, 0x1F0003}},
    ExclusiveKind,
    SharedKind,
};

constexpr std::uint32_t UnsupportedKinds[] = {3, 7, 8, 13, 14, 17, 19, 100, 0xFFFFFFFF};

TEST(SecurityAttributes, EachKindAllowsTheSevenAccountsInOrderWithTheirMasksAndNoFlags)
{
    for (const Kind& kind : SupportedKinds)
    {
        SCOPED_TRACE(kind.number);
        SecurityAttributes attributes(kind.number, false);
        ASSERT_NE(attributes.Get()->lpSecurityDescriptor, nullptr);
        EXPECT_EQ(AccessListOf(attributes.Get()->lpSecurityDescriptor), Expected(kind));
    }
}

TEST(SecurityAttributes, DescriptorIsSelfRelativeValidAndHoldsTheListAlone)
{
    for (const Kind& kind : SupportedKinds)
    {
        SCOPED_TRACE(kind.number);
        SecurityAttributes attributes(kind.number, false);
        const PSECURITY_DESCRIPTOR descriptor = attributes.Get()->lpSecurityDescriptor;
        ASSERT_NE(descriptor, nullptr);
        SECURITY_DESCRIPTOR_CONTROL control = 0;
        DWORD revision = 0;
        EXPECT_TRUE(::IsValidSecurityDescriptor(descriptor));
        EXPECT_TRUE(::GetSecurityDescriptorControl(descriptor, &control, &revision));
        EXPECT_EQ(control, SE_SELF_RELATIVE | SE_DACL_PRESENT);
    }
}

TEST(SecurityAttributes, AttributesAre24BytesLongAndCarryTheInheritFlag)
{
    for (const bool inherit : {false, true})
    {
        SecurityAttributes attributes(SecurityAttributes::SharedMutex, inherit);
        EXPECT_EQ(attributes.Get()->nLength, 24u);
        EXPECT_EQ(attributes.Get()->bInheritHandle, inherit ? TRUE : FALSE);
        EXPECT_EQ(attributes.Inherit(), inherit);
        EXPECT_EQ(attributes.Kind(), 12u);
    }
}

TEST(SecurityAttributes, UnsupportedKindHasNoDescriptorAndZeroAttributes)
{
    for (const std::uint32_t kind : UnsupportedKinds)
    {
        for (const bool inherit : {false, true})
        {
            SCOPED_TRACE(kind);
            SecurityAttributes attributes(kind, inherit);
            ASSERT_NE(attributes.Get(), nullptr);
            EXPECT_EQ(attributes.Get()->lpSecurityDescriptor, nullptr);
            EXPECT_EQ(attributes.Get()->nLength, 0u);
            EXPECT_EQ(attributes.Get()->bInheritHandle, FALSE);
            EXPECT_EQ(attributes.Kind(), kind);
            EXPECT_EQ(attributes.Inherit(), inherit);
        }
    }
}

TEST(SecurityAttributes, Kind18IsANullPointerForTheCreateCall)
{
    SecurityAttributes attributes(18, true);
    EXPECT_EQ(attributes.Get(), nullptr);
    EXPECT_EQ(attributes.Kind(), 18u);
    EXPECT_TRUE(attributes.Inherit());
}

TEST(SecurityAttributes, LookUpOfAnUnsupportedKindThrows50)
{
    for (const std::uint32_t kind : UnsupportedKinds)
    {
        SCOPED_TRACE(kind);
        try
        {
            MasksOf(kind);
            ADD_FAILURE() << "nothing was thrown";
        }
        catch (VdCommon::AccessControl::Exception* thrown)
        {
            const VdCommon::Exception::Caught caught(thrown);
            EXPECT_EQ(caught->Code(), 50u);
            EXPECT_EQ(caught->File(), "common/VdCommon/VdComn_SecurityAttributes.cpp");
            EXPECT_NE(caught->Line(), 0u);
        }
    }
}

// The blocks of the run-time library's heap, and the private regions in which guarded blocks lie.
int LiveBlocks()
{
    int count = 0;
    for (_HEAPINFO block{}; ::_heapwalk(&block) == _HEAPOK;)
    {
        count += block._useflag == _USEDENTRY;
    }
    MEMORY_BASIC_INFORMATION region{};
    for (const BYTE* at = nullptr; ::VirtualQuery(at, &region, sizeof region) != 0; at += region.RegionSize)
    {
        count += region.Type == MEM_PRIVATE && region.BaseAddress == region.AllocationBase;
    }
    return count;
}

TEST(SecurityAttributes, ExceptionOfAnUnsupportedKindIsDestroyed)
{
    constexpr int Objects = 1000;
    const int before = LiveBlocks();
    for (int count = 0; count < Objects; ++count)
    {
        SecurityAttributes attributes(3, false);
    }
    EXPECT_LT(LiveBlocks() - before, Objects / 10);
}

TEST(SecurityAttributes, MutexMadeWithThemHasTheirList)
{
    for (const Kind& kind : {ExclusiveKind, SharedKind})
    {
        SCOPED_TRACE(kind.number);
        SecurityAttributes attributes(kind.number, false);
        const UniqueKernelHandle mutex(::CreateMutexW(attributes.Get(), FALSE, nullptr));
        ASSERT_TRUE(mutex);
        EXPECT_EQ(AccessListOfObject(mutex.get()), Expected(kind));
    }
}

TEST(SecurityAttributes, ObjectMadeWithAnUnsupportedKindOrTheDefaultGetsDefaultProtection)
{
    const UniqueKernelHandle plain(::CreateMutexW(nullptr, FALSE, nullptr));
    for (const std::uint32_t kind : {3u, 13u, 18u})
    {
        SCOPED_TRACE(kind);
        SecurityAttributes attributes(kind, true);
        const UniqueKernelHandle mutex(::CreateMutexW(attributes.Get(), FALSE, nullptr));
        ASSERT_TRUE(mutex);
        DWORD flags = HANDLE_FLAG_INHERIT;
        EXPECT_TRUE(::GetHandleInformation(mutex.get(), &flags));
        EXPECT_EQ(flags & HANDLE_FLAG_INHERIT, 0u);
        SECURITY_DESCRIPTOR descriptor{};
        SECURITY_DESCRIPTOR plainDescriptor{};
        DWORD size = 0;
        DWORD plainSize = 0;
        ::GetKernelObjectSecurity(mutex.get(), DACL_SECURITY_INFORMATION, &descriptor, sizeof descriptor, &size);
        ::GetKernelObjectSecurity(plain.get(), DACL_SECURITY_INFORMATION, &plainDescriptor, sizeof descriptor,
                                  &plainSize);
        EXPECT_EQ(size, plainSize);
    }
}

TEST(SecurityAttributes, InheritFlagReachesTheHandle)
{
    SecurityAttributes attributes(SecurityAttributes::SharedMutex, true);
    const UniqueKernelHandle mutex(::CreateMutexW(attributes.Get(), FALSE, nullptr));
    DWORD flags = 0;
    EXPECT_TRUE(::GetHandleInformation(mutex.get(), &flags));
    EXPECT_EQ(flags & HANDLE_FLAG_INHERIT, DWORD{HANDLE_FLAG_INHERIT});
}

// Wine creates a key with the protection of its parent, whatever the create call says: so the list is set once more.
TEST(SecurityAttributes, RegistryKeyTakesTheListOfKind4)
{
    const std::wstring path = L"Software\\KestrixTest." + std::to_wstring(::GetCurrentProcessId());
    SecurityAttributes attributes(SecurityAttributes::RegistryKey, false);
    UniqueRegistryKey key;
    ASSERT_EQ(::RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                                KEY_QUERY_VALUE | READ_CONTROL | WRITE_DAC, attributes.Get(), key.put(), nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(::RegSetKeySecurity(key.get(), DACL_SECURITY_INFORMATION, attributes.Get()->lpSecurityDescriptor),
              ERROR_SUCCESS);
    DWORD size = 0;
    ::RegGetKeySecurity(key.get(), DACL_SECURITY_INFORMATION, nullptr, &size);
    std::vector<BYTE> descriptor(size);
    EXPECT_EQ(::RegGetKeySecurity(key.get(), DACL_SECURITY_INFORMATION, descriptor.data(), &size), ERROR_SUCCESS);
    EXPECT_EQ(AccessListOf(descriptor.data()), Expected(RegistryKeyKind));
    key.reset();
    EXPECT_EQ(::RegDeleteKeyW(HKEY_CURRENT_USER, path.c_str()), ERROR_SUCCESS);
}

} // namespace
