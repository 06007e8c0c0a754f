#include "framework/ui/kestrix/app/LogFactory.h"
#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "tests/support/LanguageFile.h"

#include <gtest/gtest.h>

namespace
{

TEST(LogFactory, TypesFourAndTenAndThoseAboveTheLastHaveNoClass)
{
    for (const std::uint32_t type : {4u, 10u, 15u, 16u, 0xFFFFFFFFu})
    {
        EXPECT_EQ(CreateLog(type), nullptr) << type;
    }
}

TEST(LogFactory, EachClassIsMadeForItsOwnType)
{
    const LanguageFile language;
    EXPECT_NE(dynamic_cast<CZPTLogVir*>(CreateLog(LogTypeVirus).get()), nullptr);
}

} // namespace
