#include "framework/ui/kestrix/app/LogFactory.h"
#include "framework/ui/kestrix/logs/ZPTLogPVY.h"
#include "framework/ui/kestrix/logs/ZPTLogPhish.h"
#include "framework/ui/kestrix/logs/ZPTLogScan.h"
#include "framework/ui/kestrix/logs/ZPTLogSkipTask.h"
#include "framework/ui/kestrix/logs/ZPTLogTSC.h"
#include "framework/ui/kestrix/logs/ZPTLogURL.h"
#include "framework/ui/kestrix/logs/ZPTLogUpdate.h"
#include "framework/ui/kestrix/logs/ZPTLogVA.h"
#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "tests/support/CategoryService.h"
#include "tests/support/LanguageFile.h"

#include <gtest/gtest.h>

namespace
{

template <class Log>
bool Makes(std::uint32_t type)
{
    return dynamic_cast<Log*>(CreateLog(type).get()) != nullptr;
}

// The log of the URL filter asks the service.
class LogFactory : private WithCategoryService, public ::testing::Test
{
};

TEST_F(LogFactory, TypesFourAndTenAndThoseAboveTheLastHaveNoClass)
{
    for (const std::uint32_t type : {4u, 10u, 15u, 16u, 0xFFFFFFFFu})
    {
        EXPECT_EQ(CreateLog(type), nullptr) << type;
    }
}

TEST_F(LogFactory, EachClassIsMadeForItsOwnType)
{
    const LanguageFile language;
    EXPECT_TRUE(Makes<CZPTLogVir>(LogTypeVirus));
    EXPECT_TRUE(Makes<CZPTLogUpdate>(LogTypeUpdate));
    EXPECT_TRUE(Makes<CZPTLogURL>(LogTypeUrlFilter));
    EXPECT_TRUE(Makes<CZPTLogTSC>(LogTypeTsc));
    EXPECT_TRUE(Makes<CZPTLogPVY>(LogTypePrivacy));
    EXPECT_TRUE(Makes<CZPTLogPhish>(LogTypePhishing));
    EXPECT_TRUE(Makes<CZPTLogVA>(LogTypeVa));
    EXPECT_TRUE(Makes<CZPTLogScan>(LogTypeScan));
    EXPECT_TRUE(Makes<CZPTLogSkipTask>(LogTypeSkippedTask));
}

} // namespace
