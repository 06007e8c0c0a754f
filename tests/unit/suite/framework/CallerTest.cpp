#include "suite/framework/Caller.h"

#include <gtest/gtest.h>

#include <array>

using Framework::Caller;

TEST(CallerTest, WithoutACallFromAnotherProcessItIsTheUserOfThisOne)
{
    std::array<char, 256> user{};
    DWORD size = user.size();
    ASSERT_TRUE(GetUserNameA(user.data(), &size));
    const std::string name = Caller().Name();
    const std::string end =
        "\\" + std::string(user.data()) + " (process " + std::to_string(GetCurrentProcessId()) + ")";
    EXPECT_TRUE(name.ends_with(end)) << name;
    EXPECT_GT(name.size(), end.size()) << "there is no machine before the user";
}
