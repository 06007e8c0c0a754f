#include "common/VdCommon/VdComn_Registry.h"

#include "tests/support/ImportPatch.h"
#include "tests/support/LiveHandles.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/unit/common/VdCommon/StorageCodes.h"

#include <gtest/gtest.h>

extern "C" decltype(&::RegCloseKey) __imp_RegCloseKey;
extern "C" decltype(&::RegDeleteKeyW) __imp_RegDeleteKeyW;
extern "C" decltype(&::RegDeleteValueW) __imp_RegDeleteValueW;
extern "C" decltype(&::RegEnumKeyExW) __imp_RegEnumKeyExW;
extern "C" decltype(&::RegEnumValueW) __imp_RegEnumValueW;
extern "C" decltype(&::RegFlushKey) __imp_RegFlushKey;
extern "C" decltype(&::RegQueryValueExW) __imp_RegQueryValueExW;
extern "C" decltype(&::RegSetValueExW) __imp_RegSetValueExW;

namespace
{

using namespace VdCommon::Storage;
using VdCommon::ByteArray;
using Names = std::vector<std::wstring>;

constexpr std::uint32_t AccessDenied = ERROR_ACCESS_DENIED;

long LiveKeys()
{
    return LiveHandles::Of(HandleKind::RegistryKey);
}

class RegistryStorage : public ::testing::Test
{
protected:
    static Key At(const wchar_t* path) { return Key::InRegistry(HKEY_LOCAL_MACHINE, path); }

    const Key m_key = At(L"Software\\Kestrix");
    RegistrySandbox m_sandbox;
    Registry m_registry;
};

TEST_F(RegistryStorage, RightsThatWereNotAskedForAreRefusedWithThePlatformsCode)
{
    m_sandbox.SetNumber(L"Software\\Kestrix", L"name", 1);
    Names names;
    EXPECT_TRUE(m_registry.OpenRead(m_key, L""));
    EXPECT_EQ(ThrownCode([&] { m_registry.SetNumber(L"name", 2); }), AccessDenied);
    EXPECT_EQ(ThrownCode([&] { m_registry.DeleteValue(L"name"); }), AccessDenied);
    EXPECT_EQ(ThrownCode([&] { m_registry.ListKeys(names); }), AccessDenied);
    EXPECT_TRUE(m_registry.OpenWrite(m_key, L""));
    EXPECT_EQ(ThrownCode([&] { m_registry.QueryNumber(L"name", 0); }), AccessDenied);
}

TEST_F(RegistryStorage, SettersWriteTheirTypeAndBytes)
{
    ByteArray bytes;
    bytes.Allocate(3);
    bytes.Data()[2] = 9;
    m_registry.OpenCreate(m_key, L"");
    EXPECT_TRUE(m_registry.SetNumber(L"number", 0x04030201));
    EXPECT_TRUE(m_registry.SetQword(L"qword", 0x0807060504030201));
    EXPECT_TRUE(m_registry.SetBinary(L"bytes", bytes));
    EXPECT_TRUE(m_registry.SetBinary(L"none", ByteArray()));
    EXPECT_TRUE(m_registry.SetString(L"text", L"a\x0416"));
    EXPECT_TRUE(m_registry.SetString(L"empty", L""));

    struct Stored
    {
        const wchar_t* name;
        DWORD type;
        std::vector<BYTE> bytes;
    };

    const Stored stored[] = {
        {L"number", REG_DWORD, {1, 2, 3, 4}},       {L"qword", 11, {1, 2, 3, 4, 5, 6, 7, 8}},
        {L"bytes", REG_BINARY, {0, 0, 9}},          {L"none", REG_BINARY, {}},
        {L"text", REG_SZ, {'a', 0, 0x16, 4, 0, 0}}, {L"empty", REG_SZ, {0, 0}},
    };
    for (const Stored& value : stored)
    {
        std::vector<BYTE> found;
        EXPECT_EQ(m_sandbox.Get(L"Software\\Kestrix", value.name, found), value.type) << value.name;
        EXPECT_EQ(found, value.bytes) << value.name;
    }
}

// A platform that refuses nothing, not even the null handle.
template <LSTATUS result, class... Arguments>
LSTATUS WINAPI Answer(Arguments...)
{
    return result;
}

class LenientPlatform
{
    const ImportPatch<decltype(&::RegCloseKey)> m_close{__imp_RegCloseKey, &Answer<ERROR_SUCCESS>};
    const ImportPatch<decltype(&::RegDeleteKeyW)> m_deleteKey{__imp_RegDeleteKeyW, &Answer<ERROR_SUCCESS>};
    const ImportPatch<decltype(&::RegDeleteValueW)> m_deleteValue{__imp_RegDeleteValueW, &Answer<ERROR_SUCCESS>};
    const ImportPatch<decltype(&::RegEnumKeyExW)> m_enumKey{__imp_RegEnumKeyExW, &Answer<ERROR_NO_MORE_ITEMS>};
    const ImportPatch<decltype(&::RegEnumValueW)> m_enumValue{__imp_RegEnumValueW, &Answer<ERROR_NO_MORE_ITEMS>};
    const ImportPatch<decltype(&::RegFlushKey)> m_flush{__imp_RegFlushKey, &Answer<ERROR_SUCCESS>};
    const ImportPatch<decltype(&::RegQueryValueExW)> m_query{__imp_RegQueryValueExW, &Answer<ERROR_SUCCESS>};
    const ImportPatch<decltype(&::RegSetValueExW)> m_set{__imp_RegSetValueExW, &Answer<ERROR_SUCCESS>};
};

TEST_F(RegistryStorage, EveryOperationOfAnObjectThatIsNotOpenThrowsCode6)
{
    const auto expectNotOpen = [this]
    {
        const LenientPlatform lenient;
        ByteArray bytes;
        Names names;
        EXPECT_EQ(ThrownCode([&] { m_registry.Close(false); }), 6u);
        EXPECT_EQ(ThrownCode([&] { m_registry.Flush(); }), 6u);
        EXPECT_EQ(ThrownCode([&] { m_registry.QueryBinary(L"", bytes); }), 6u);
        EXPECT_EQ(ThrownCode([&] { m_registry.QueryString(L"", L""); }), 6u);
        EXPECT_EQ(ThrownCode([&] { m_registry.QueryNumber(L"", 0); }), 6u);
        EXPECT_EQ(ThrownCode([&] { m_registry.SetBinary(L"", bytes); }), 6u);
        EXPECT_EQ(ThrownCode([&] { m_registry.SetString(L"", L""); }), 6u);
        EXPECT_EQ(ThrownCode([&] { m_registry.SetQword(L"", 0); }), 6u);
        EXPECT_EQ(ThrownCode([&] { m_registry.SetNumber(L"", 0); }), 6u);
        EXPECT_EQ(ThrownCode([&] { m_registry.DeleteLocation(); }), 6u);
        EXPECT_EQ(ThrownCode([&] { m_registry.DeleteValue(L""); }), 6u);
        EXPECT_EQ(ThrownCode([&] { m_registry.DeleteValue(std::wstring()); }), 6u);
        EXPECT_EQ(ThrownCode([&] { m_registry.ListKeys(names); }), 6u);
        EXPECT_EQ(ThrownCode([&] { m_registry.ListValues(names); }), 6u);
    };
    expectNotOpen();
    ThrownCode([&] { m_registry.OpenRead(m_key, L""); });
    expectNotOpen();
    m_registry.OpenCreate(m_key, L"");
    m_registry.Close(false);
    expectNotOpen();
    m_registry.OpenCreate(m_key, L"");
    {
        const ImportPatch close(__imp_RegCloseKey, &Answer<ERROR_BUSY>);
        ThrownCode([&] { m_registry.Close(false); });
    }
    expectNotOpen();
}

TEST_F(RegistryStorage, CloseClearsThePathAndGivesTheHandleBack)
{
    const long before = LiveKeys();
    m_registry.OpenCreate(m_key, L"");
    EXPECT_EQ(LiveKeys(), before + 1);
    EXPECT_EQ(m_registry.Path(), L"Software\\Kestrix\\");
    EXPECT_TRUE(m_registry.Close(false));
    EXPECT_EQ(LiveKeys(), before);
    EXPECT_EQ(m_registry.Path(), L"");
}

TEST_F(RegistryStorage, FailedOpeningLeavesTheOpenLocation)
{
    m_registry.OpenCreate(m_key, L"");
    m_registry.SetNumber(L"name", 1);
    EXPECT_EQ(ThrownCode([&] { m_registry.OpenRead(m_key, L"none"); }), 2u);
    EXPECT_EQ(m_registry.QueryNumber(L"name", 0), 1u);
}

int g_flushes = 0;
int g_closes = 0;

LSTATUS WINAPI CountFlush(HKEY)
{
    ++g_flushes;
    return ERROR_SUCCESS;
}

LSTATUS WINAPI FailToFlush(HKEY)
{
    return ERROR_DISK_FULL;
}

LSTATUS WINAPI FailToClose(HKEY)
{
    ++g_closes;
    return ERROR_BUSY;
}

TEST_F(RegistryStorage, OnlyAFlushedCloseFlushes)
{
    const ImportPatch flush(__imp_RegFlushKey, &CountFlush);
    g_flushes = 0;
    m_registry.OpenCreate(m_key, L"");
    m_registry.Close(false);
    EXPECT_EQ(g_flushes, 0);
    m_registry.OpenCreate(m_key, L"");
    m_registry.Close(true);
    EXPECT_EQ(g_flushes, 1);
    {
        Registry destroyed;
        destroyed.OpenCreate(m_key, L"");
    }
    EXPECT_EQ(g_flushes, 1);
}

TEST_F(RegistryStorage, FailedFlushThrowsThePlatformsCodeAndLeavesTheKeyOpen)
{
    m_registry.OpenCreate(m_key, L"");
    const ImportPatch flush(__imp_RegFlushKey, &FailToFlush);
    EXPECT_EQ(ThrownCode([&] { m_registry.Flush(); }), std::uint32_t{ERROR_DISK_FULL});
    EXPECT_EQ(ThrownCode([&] { m_registry.Close(true); }), std::uint32_t{ERROR_DISK_FULL});
    EXPECT_TRUE(m_registry.SetNumber(L"name", 1));
}

TEST_F(RegistryStorage, FailedCloseThrowsThePlatformsCodeAndKeepsThePath)
{
    m_registry.OpenCreate(m_key, L"");
    const ImportPatch close(__imp_RegCloseKey, &FailToClose);
    EXPECT_EQ(ThrownCode([&] { m_registry.Close(false); }), std::uint32_t{ERROR_BUSY});
    EXPECT_EQ(m_registry.Path(), L"Software\\Kestrix\\");
}

TEST_F(RegistryStorage, DestructorClosesAnOpenKeyOnceAndSwallowsItsFailure)
{
    const long before = LiveKeys();
    auto open = std::make_unique<Registry>();
    open->OpenCreate(m_key, L"");
    const ImportPatch close(__imp_RegCloseKey, &FailToClose);
    g_closes = 0;
    open.reset();
    EXPECT_EQ(g_closes, 1);
    EXPECT_EQ(LiveKeys(), before);
    Registry();
    EXPECT_EQ(g_closes, 1);
}

TEST_F(RegistryStorage, DeleteLocationDeletesTheOpenKeyItself)
{
    m_sandbox.SetNumber(L"Software\\Kestrix\\Sub", L"name", 1);
    EXPECT_TRUE(m_registry.OpenWrite(m_key, L"Sub"));
    EXPECT_TRUE(m_registry.DeleteLocation());
    EXPECT_FALSE(m_sandbox.HasKey(L"Software\\Kestrix\\Sub"));
    EXPECT_TRUE(m_sandbox.HasKey(L"Software\\Kestrix"));
    EXPECT_EQ(ThrownCode([&] { m_registry.SetNumber(L"name", 1); }), std::uint32_t{ERROR_KEY_DELETED});
}

TEST_F(RegistryStorage, DeletingAKeyWithSubKeysIsRefused)
{
    m_sandbox.MakeKey(L"Software\\Kestrix\\Sub");
    m_registry.OpenWrite(m_key, L"");
    EXPECT_EQ(ThrownCode([&] { m_registry.DeleteLocation(); }), AccessDenied);
    EXPECT_TRUE(m_sandbox.HasKey(L"Software\\Kestrix\\Sub"));
}

TEST_F(RegistryStorage, DeletingAMissingValueThrowsCode2)
{
    m_registry.OpenCreate(m_key, L"");
    EXPECT_EQ(ThrownCode([&] { m_registry.DeleteValue(L"name"); }), 2u);
    EXPECT_EQ(ThrownCode([&] { m_registry.DeleteValue(std::wstring(L"name")); }), 2u);
}

TEST_F(RegistryStorage, NullPointerToANameDeletesTheUnnamedValue)
{
    m_registry.OpenCreate(m_key, L"");
    m_registry.SetNumber(L"", 1);
    EXPECT_TRUE(m_registry.DeleteValue(static_cast<const wchar_t*>(nullptr)));
    EXPECT_EQ(ThrownCode([&] { m_registry.QueryNumber(L"", 0); }), 2u);
}

} // namespace
