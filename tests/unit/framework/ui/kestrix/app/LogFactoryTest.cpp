#include "framework/ui/kestrix/app/LogFactory.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "tests/support/CategoryService.h"
#include "tests/support/LanguageFile.h"

#include <gtest/gtest.h>

namespace
{

// Lets the tests see of which type a log is.
struct OpenLog : CZPTLogBase
{
    static std::uint32_t TypeOf(const CZPTLogBase& log) { return log.*&OpenLog::m_nLogType; }
};

// The log of the URL filter asks the service.
class LogFactory : private WithCategoryService, public ::testing::Test
{
};

TEST_F(LogFactory, TypesFourAndTenAndThoseThatNoKindHasHaveNoClass)
{
    for (const std::uint32_t type : {4u, 10u, 15u, 1000u, 0xFFFFFFFFu})
    {
        EXPECT_EQ(CreateLog(type), nullptr) << type;
    }
}

TEST_F(LogFactory, EachKindHasAClassOfItsOwnType)
{
    const LanguageFile language;
    for (const LogKind& kind : LogKinds())
    {
        const std::unique_ptr<CZPTLogBase> log = CreateLog(kind.type);
        ASSERT_NE(log, nullptr) << kind.type;
        EXPECT_EQ(OpenLog::TypeOf(*log), kind.type);
    }
}

} // namespace
