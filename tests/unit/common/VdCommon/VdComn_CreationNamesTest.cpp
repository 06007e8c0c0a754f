#include "common/VdCommon/VdComn_CreationNames.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace
{

using VdCommon::CreationNames;
using VdCommon::GetCreationName;
using VdCommon::Platform;

template <DWORD Family, DWORD Major>
BOOL WINAPI Version(OSVERSIONINFOW* version)
{
    version->dwPlatformId = Family;
    version->dwMajorVersion = Major;
    return TRUE;
}

BOOL WINAPI Refuse(OSVERSIONINFOW*)
{
    ::SetLastError(ERROR_ACCESS_DENIED);
    return FALSE;
}

TEST(CreationNames, LocalPutsThePrefixOfTheSessionBeforeTheName)
{
    std::wstring name;
    EXPECT_TRUE(CreationNames::Local(name, L"FRWK_MUTEX_KESTRIX"));
    EXPECT_EQ(name, L"Local\\FRWK_MUTEX_KESTRIX");
}

TEST(CreationNames, GlobalPutsThePrefixOfAllSessionsBeforeTheName)
{
    std::wstring name;
    EXPECT_TRUE(CreationNames::Global(name, L"FRWK_MUTEX_KESTRIX"));
    EXPECT_EQ(name, L"Global\\FRWK_MUTEX_KESTRIX");
}

TEST(CreationNames, LocalLeavesANameThatHoldsThePrefixAnywhere)
{
    for (const wchar_t* const held : {L"Local\\A", L"ALocal\\B", L"ALocal\\", L"Local\\", L"Global\\Local\\A"})
    {
        std::wstring name;
        EXPECT_TRUE(CreationNames::Local(name, held));
        EXPECT_EQ(name, held);
    }
}

TEST(CreationNames, GlobalLeavesANameThatHoldsThePrefixAnywhere)
{
    for (const wchar_t* const held : {L"Global\\A", L"AGlobal\\B", L"AGlobal\\", L"Global\\", L"Local\\Global\\A"})
    {
        std::wstring name;
        EXPECT_TRUE(CreationNames::Global(name, held));
        EXPECT_EQ(name, held);
    }
}

TEST(CreationNames, OnlyTheWholePrefixCounts)
{
    std::wstring name;
    EXPECT_TRUE(CreationNames::Local(name, L"LocalA"));
    EXPECT_EQ(name, L"Local\\LocalA");
    EXPECT_TRUE(CreationNames::Local(name, L"local\\A"));
    EXPECT_EQ(name, L"Local\\local\\A");
}

TEST(CreationNames, EachPrefixLooksForItselfAlone)
{
    std::wstring name;
    EXPECT_TRUE(CreationNames::Local(name, L"Global\\A"));
    EXPECT_EQ(name, L"Local\\Global\\A");
    EXPECT_TRUE(CreationNames::Global(name, L"Local\\A"));
    EXPECT_EQ(name, L"Global\\Local\\A");
}

TEST(CreationNames, EmptyNameGivesTheEmptyTextAndFalse)
{
    std::wstring name = L"before";
    EXPECT_FALSE(CreationNames::Local(name, L""));
    EXPECT_EQ(name, L"");
    name = L"before";
    EXPECT_FALSE(CreationNames::Global(name, L""));
    EXPECT_EQ(name, L"");
}

TEST(CreationNames, FailedPlatformQuestionGivesTheEmptyTextAndFalse)
{
    const Platform unknown(Refuse);
    for (const wchar_t* const asked : {L"A", L"Local\\A", L"Global\\A"})
    {
        std::wstring name = L"before";
        EXPECT_FALSE(CreationNames::Local(name, asked, unknown));
        EXPECT_EQ(name, L"");
        name = L"before";
        EXPECT_FALSE(CreationNames::Global(name, asked, unknown));
        EXPECT_EQ(name, L"");
    }
}

TEST(CreationNames, OlderPlatformLeavesTheNameWithTrue)
{
    for (const Platform& older : {Platform(Version<VER_PLATFORM_WIN32_NT, 4>), Platform(Version<1, 5>)})
    {
        std::wstring name;
        EXPECT_TRUE(CreationNames::Local(name, L"A", older));
        EXPECT_EQ(name, L"A");
        EXPECT_TRUE(CreationNames::Global(name, L"A", older));
        EXPECT_EQ(name, L"A");
    }
}

TEST(CreationNames, EmptyNameIsFalseOnAnOlderPlatformToo)
{
    std::wstring name = L"before";
    EXPECT_FALSE(CreationNames::Local(name, L"", Platform(Version<VER_PLATFORM_WIN32_NT, 4>)));
    EXPECT_EQ(name, L"");
}

TEST(CreationNames, MajorVersion5IsTheFirstWithPrefixes)
{
    std::wstring name;
    EXPECT_TRUE(CreationNames::Local(name, L"A", Platform(Version<VER_PLATFORM_WIN32_NT, 5>)));
    EXPECT_EQ(name, L"Local\\A");
}

TEST(CreationNames, NameAndResultMayBeOneText)
{
    std::wstring name = L"A";
    EXPECT_TRUE(CreationNames::Local(name, name));
    EXPECT_EQ(name, L"Local\\A");
    EXPECT_TRUE(CreationNames::Local(name, name));
    EXPECT_EQ(name, L"Local\\A");
}

TEST(CreationNames, ObjectHoldsBothNames)
{
    const CreationNames names(L"A");
    EXPECT_EQ(names.GetGlobalName(), L"Global\\A");
    EXPECT_EQ(names.GetLocalName(), L"Local\\A");
    static_assert(std::has_virtual_destructor_v<CreationNames>);
}

TEST(CreationNames, ObjectOfAnEmptyNameHoldsNone)
{
    const CreationNames names(L"");
    EXPECT_EQ(names.GetGlobalName(), L"");
    EXPECT_EQ(names.GetLocalName(), L"");
}

TEST(GetCreationName, GivesTheLocalName)
{
    std::wstring name;
    EXPECT_TRUE(GetCreationName(name, L"FRWK_MUTEX_KESTRIX"));
    EXPECT_EQ(name, L"Local\\FRWK_MUTEX_KESTRIX");
}

TEST(GetCreationName, IsFalseForAnEmptyName)
{
    std::wstring name = L"before";
    EXPECT_FALSE(GetCreationName(name, L""));
    EXPECT_EQ(name, L"");
}

TEST(GetCreationName, IsFalseWhenThePlatformQuestionFailed)
{
    std::wstring name = L"before";
    EXPECT_FALSE(GetCreationName(name, L"A", Platform(Refuse)));
    EXPECT_EQ(name, L"");
}

} // namespace
