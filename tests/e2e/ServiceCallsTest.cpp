// Calls of many clients of the service at once.

#include "platform/dialog/ComUse.h"
#include "suite/framework/ValueSource.h"
#include "tests/e2e/ServiceFixture.h"

#include <algorithm>
#include <chrono>
#include <future>
#include <vector>

namespace
{

using ServiceCallsTest = ServiceFixture;

constexpr int Clients = 4;
constexpr int Calls = 300; // of each

// A client who comes, asks for a value and goes, again and again.
void ComeAndGo()
{
    const ComUse com;
    for (int i = 0; i < Calls; ++i)
    {
        EXPECT_EQ(QueryProfile(*Connect().Get(), Framework::ValueKey{112, 1}).size(), 3u);
    }
}

} // namespace

// The one who let go of the last object of an interface waited in a lock of the system for the calls of the others, and
// those for the lock.
TEST_F(ServiceCallsTest, OfClientsThatComeAndGoAtOnceAreAllAnswered)
{
    std::vector<std::future<void>> clients(Clients);
    std::ranges::generate(clients, [] { return std::async(std::launch::async, &ComeAndGo); });
    const auto isDone = [](const std::future<void>& client)
    { return client.wait_for(std::chrono::minutes(1)) == std::future_status::ready; };
    const bool areDone = std::ranges::all_of(clients, isDone);
    EXPECT_TRUE(areDone) << "a call does not come back";
    if (!areDone)
    {
        Service::Kill(); // which fails the calls
    }
}
