#include "suite/database/LogKinds.h"

#include <gtest/gtest.h>

namespace EventLog
{

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
