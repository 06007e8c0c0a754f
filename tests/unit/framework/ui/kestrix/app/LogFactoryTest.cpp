#include "framework/ui/kestrix/app/LogFactory.h"
#include "framework/ui/kestrix/logs/ZPTLogVir.h"

#include <gtest/gtest.h>

namespace
{

TEST(LogFactory, TypesFourAndTenAndThoseAboveTheLastHaveNoClass)
{
    EXPECT_EQ(FindLogClass(4), nullptr);
    EXPECT_EQ(FindLogClass(10), nullptr);
    EXPECT_EQ(FindLogClass(LogTypeNone), nullptr);
    EXPECT_EQ(FindLogClass(16), nullptr);
    EXPECT_EQ(FindLogClass(0xFFFFFFFF), nullptr);
}

TEST(LogFactory, TheVirusLogShowsItsFirstRowAsALink)
{
    const LogClass* const logClass = FindLogClass(LogTypeVirus);
    ASSERT_NE(logClass, nullptr);
    EXPECT_EQ(logClass->firstRow, FirstInfoRow::Link);
    EXPECT_NE(dynamic_cast<CZPTLogVir*>(logClass->create().get()), nullptr);
}

} // namespace
