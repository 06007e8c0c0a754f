#include "common/VdCommon/VdComn_Session.h"

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

} // namespace
