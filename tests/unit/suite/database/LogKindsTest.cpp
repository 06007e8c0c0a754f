#include "suite/database/LogKinds.h"

#include <gtest/gtest.h>

#include <set>

namespace EventLog
{

TEST(LogKindsTest, ThereAreThirteenAndNoNumberIsUsedTwice)
{
    std::set<std::wstring_view> extensions;
    std::set<std::uint32_t> subTypes;
    std::set<std::uint32_t> purgeTypes;
    for (const LogKind& kind : AllLogKinds())
    {
        extensions.insert(kind.extension);
        subTypes.insert(kind.subType);
        purgeTypes.insert(kind.purgeType);
    }
    EXPECT_EQ(extensions.size(), 13u);
    EXPECT_EQ(subTypes.size(), 13u);
    EXPECT_EQ(*subTypes.begin(), 2u);
    EXPECT_EQ(*subTypes.rbegin(), 14u);
    EXPECT_EQ(purgeTypes.size(), 13u);
}

TEST(LogKindsTest, AKindIsFoundByEachOfItsNames)
{
    for (const LogKind& kind : AllLogKinds())
    {
        EXPECT_EQ(FindKindOfExtension(kind.extension), &kind);
        EXPECT_EQ(FindKindOfSubType(kind.subType), &kind);
        EXPECT_EQ(FindKindOfPurgeType(kind.purgeType), &kind);
    }
    EXPECT_EQ(FindKindOfPurgeType(10)->extension, L"HLG");
    EXPECT_EQ(FindKindOfSubType(11)->extension, L"UPG");
}

TEST(LogKindsTest, WhatIsNoKindIsNotFound)
{
    EXPECT_EQ(FindKindOfExtension(L"vlg"), nullptr);
    EXPECT_EQ(FindKindOfExtension(L""), nullptr);
    EXPECT_EQ(FindKindOfSubType(1), nullptr);
    EXPECT_EQ(FindKindOfPurgeType(6), nullptr);
    EXPECT_EQ(FindKindOfPurgeType(9), nullptr);
}

} // namespace EventLog
