// The lists of a Registry: sub-keys and values.

#include "common/VdCommon/VdComn_Registry.h"

#include "tests/support/RegistrySandbox.h"
#include "tests/unit/common/VdCommon/StorageCodes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

using namespace VdCommon::Storage;
using Names = std::vector<std::wstring>;

constexpr const wchar_t* ListPath = L"Software\\Kestrix";

class RegistryList : public ::testing::Test
{
protected:
    RegistryList()
    {
        m_sandbox.MakeKey(ListPath);
        m_registry.OpenEnumerate(Key::InRegistry(HKEY_LOCAL_MACHINE, ListPath), L"");
    }

    static std::wstring Below(const std::wstring& name) { return std::wstring(ListPath) + L'\\' + name; }

    static Names Sorted(Names names)
    {
        std::sort(names.begin(), names.end());
        return names;
    }

    // Makes values and keys of these names, which are in order, and expects both lists to have them.
    void ExpectWhole(const Names& all)
    {
        for (const std::wstring& name : all)
        {
            m_sandbox.SetNumber(ListPath, name, 1);
            m_sandbox.MakeKey(Below(name));
        }
        EXPECT_TRUE(m_registry.ListValues(m_names));
        EXPECT_EQ(Sorted(m_names), all);
        m_names.clear();
        EXPECT_TRUE(m_registry.ListKeys(m_names));
        EXPECT_EQ(Sorted(m_names), all);
    }

    RegistrySandbox m_sandbox;
    Registry m_registry;
    Names m_names;
};

TEST_F(RegistryList, EmptyKeyGivesTrueAndAddsNothing)
{
    EXPECT_TRUE(m_registry.ListValues(m_names));
    EXPECT_TRUE(m_registry.ListKeys(m_names));
    EXPECT_TRUE(m_names.empty());
}

TEST_F(RegistryList, KeysAndValuesAreListedApart)
{
    m_sandbox.MakeKey(Below(L"key one\\deeper"));
    m_sandbox.MakeKey(Below(L"key two"));
    m_sandbox.SetNumber(ListPath, L"number", 1);
    m_sandbox.SetText(ListPath, L"", L"unnamed");
    m_sandbox.SetBytes(ListPath, L"bytes", std::vector<BYTE>(1000, 1));
    EXPECT_TRUE(m_registry.ListKeys(m_names));
    EXPECT_EQ(Sorted(m_names), (Names{L"key one", L"key two"}));
    m_names.clear();
    EXPECT_TRUE(m_registry.ListValues(m_names));
    EXPECT_EQ(Sorted(m_names), (Names{L"", L"bytes", L"number"}));
}

TEST_F(RegistryList, NamesAreAppended)
{
    m_sandbox.SetNumber(ListPath, L"number", 1);
    m_names = {L"before"};
    EXPECT_TRUE(m_registry.ListValues(m_names));
    EXPECT_EQ(m_names, (Names{L"before", L"number"}));
}

TEST_F(RegistryList, ShortNameBehindALongOneIsWhole)
{
    ExpectWhole({std::wstring(200, L'a'), L"b", std::wstring(100, L'c'), L"d"});
}

// The room for a name was called 255 characters and had 256: it holds 255 with the terminator, as all rooms do.
TEST_F(RegistryList, NamesOfUpTo254CharactersAreWhole)
{
    ExpectWhole({std::wstring(253, L'a'), std::wstring(254, L'b')});
}

TEST_F(RegistryList, ANameOf255CharactersOrMoreThrowsCode234)
{
    for (const std::size_t length : {255u, 256u, 1000u})
    {
        const std::wstring path = L"Software\\Kestrix\\" + std::to_wstring(length);
        m_sandbox.SetNumber(path, std::wstring(length, L'a'), 1);
        m_registry.OpenEnumerate(Key::InRegistry(HKEY_LOCAL_MACHINE, path.c_str()), L"");
        EXPECT_EQ(ThrownCode([&] { m_registry.ListValues(m_names); }), 234u) << length;
    }
    m_sandbox.MakeKey(Below(L"deep\\" + std::wstring(255, L'a'))); // the longest that a key may have
    m_registry.OpenEnumerate(Key::InRegistry(HKEY_LOCAL_MACHINE, ListPath), L"deep");
    EXPECT_EQ(ThrownCode([&] { m_registry.ListKeys(m_names); }), 234u);
    EXPECT_TRUE(m_names.empty());
}

TEST_F(RegistryList, ManyNames)
{
    Names all;
    for (int number = 1000; number < 1300; ++number)
    {
        all.push_back(std::to_wstring(number));
        m_sandbox.SetNumber(ListPath, all.back(), 1);
    }
    EXPECT_TRUE(m_registry.ListValues(m_names));
    EXPECT_EQ(Sorted(m_names), all);
}

TEST_F(RegistryList, CodeOfAnyOtherFailureIsThrown)
{
    m_sandbox.MakeKey(Below(L"gone"));
    Registry gone;
    gone.OpenEnumerate(Key::InRegistry(HKEY_LOCAL_MACHINE, ListPath), L"gone");
    ::RegDeleteTreeW(m_sandbox.Root(), Below(L"gone").c_str());
    EXPECT_EQ(ThrownCode([&] { gone.ListKeys(m_names); }), std::uint32_t{ERROR_KEY_DELETED});
    EXPECT_EQ(ThrownCode([&] { gone.ListValues(m_names); }), std::uint32_t{ERROR_KEY_DELETED});
}

} // namespace
