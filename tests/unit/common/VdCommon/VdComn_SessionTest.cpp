#include "common/VdCommon/VdComn_Session.h"

#include "tests/unit/common/VdCommon/SessionDouble.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace
{

TEST(Session, ThisProcessIsInTheServiceSessionExactlyWhenItsSessionIsZero)
{
    DWORD session = 0;
    ASSERT_TRUE(ProcessIdToSessionId(GetCurrentProcessId(), &session));
    EXPECT_EQ(VdCommon::IsServiceSession(), session == 0);
}

TEST(Session, SessionZeroAndNoOtherIsTheServiceSession)
{
    for (const DWORD session : {0u, 1u, 2u, 0xFFFFFFFFu})
    {
        const SessionDouble platform(session);
        EXPECT_EQ(VdCommon::IsServiceSession(), session == 0) << session;
    }
}

TEST(Session, APlatformThatDoesNotSayMeansNotTheServiceSession)
{
    const SessionDouble platform(std::nullopt);
    EXPECT_FALSE(VdCommon::IsServiceSession());
}

} // namespace
