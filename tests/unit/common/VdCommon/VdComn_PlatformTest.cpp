#include "common/VdCommon/VdComn_Platform.h"

#include <gtest/gtest.h>

namespace
{

using VdCommon::IsPlatform;
using VdCommon::Platform;
using VdCommon::PlatformError;

int g_reads = 0;

template <DWORD Family, DWORD Major>
BOOL WINAPI AnswerVersion(OSVERSIONINFOW* version)
{
    ++g_reads;
    EXPECT_EQ(version->dwOSVersionInfoSize, sizeof(OSVERSIONINFOW));
    version->dwPlatformId = Family;
    version->dwMajorVersion = Major;
    return TRUE;
}

BOOL WINAPI RefuseVersion(OSVERSIONINFOW*)
{
    ++g_reads;
    ::SetLastError(ERROR_ACCESS_DENIED);
    return FALSE;
}

TEST(Platform, Selector14IsTheNtFamilyFromMajorVersion5)
{
    EXPECT_FALSE(Platform(AnswerVersion<2, 4>).Is(14));
    EXPECT_TRUE(Platform(AnswerVersion<2, 5>).Is(14));
    EXPECT_TRUE(Platform(AnswerVersion<2, 10>).Is(14));
    EXPECT_FALSE(Platform(AnswerVersion<1, 5>).Is(14));
}

TEST(Platform, Selector18IsTheNtFamilyFromMajorVersion6)
{
    EXPECT_FALSE(Platform(AnswerVersion<2, 5>).Is(18));
    EXPECT_TRUE(Platform(AnswerVersion<2, 6>).Is(18));
    EXPECT_TRUE(Platform(AnswerVersion<2, 10>).Is(18));
    EXPECT_FALSE(Platform(AnswerVersion<1, 6>).Is(18));
}

TEST(Platform, OtherSelectorsAreFalse)
{
    const Platform platform(AnswerVersion<2, 10>);
    for (const std::uint32_t selector : {0u, 13u, 15u, 17u, 19u, 0xFFFFFFFFu})
    {
        EXPECT_FALSE(platform.Is(selector)) << selector;
    }
}

TEST(Platform, VersionIsReadOnceAndKept)
{
    g_reads = 0;
    const Platform platform(AnswerVersion<2, 6>);
    EXPECT_TRUE(platform.Is(14));
    EXPECT_TRUE(platform.Is(18));
    EXPECT_EQ(platform.Error(), 0u);
    EXPECT_EQ(g_reads, 1);
}

TEST(Platform, FailureToReadAnswersFalseAndItsErrorStands)
{
    g_reads = 0;
    const Platform platform(RefuseVersion);
    EXPECT_FALSE(platform.Is(14));
    ::SetLastError(ERROR_SUCCESS);
    EXPECT_FALSE(platform.Is(18));
    EXPECT_EQ(platform.Error(), 5u);
    EXPECT_EQ(g_reads, 1);
}

TEST(Platform, ThisSystemIsVistaOrLater)
{
    EXPECT_TRUE(IsPlatform(VdCommon::PlatformWindows2000));
    EXPECT_TRUE(IsPlatform(VdCommon::PlatformVista));
    EXPECT_EQ(PlatformError(), 0u);
}

} // namespace
