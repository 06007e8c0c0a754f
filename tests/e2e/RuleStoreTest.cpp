// The firewall rules of the service: what is left of them when it is killed, and what a person sees and changes.

#include "suite/framework/RuleText.h"
#include "suite/framework/ValueSource.h"
#include "tests/e2e/ClientThread.h"
#include "tests/e2e/Process.h"
#include "tests/e2e/RuleList.h"
#include "tests/e2e/ServiceFixture.h"
#include "tests/support/DebugScale.h"
#include "tests/unit/suite/framework/RandomRules.h"

#include <filesystem>
#include <functional>
#include <random>

namespace
{

using Framework::FirewallRules;
using Framework::List;

constexpr int RandomMoments = 2;

class RuleStoreTest : public ServiceFixture
{
protected:
    std::wstring File(const wchar_t* name) const { return m_service.Installed().File(name); }

    // Sets the rules and kills the service at the moment for which the function waits. Whether they are stored.
    bool AreStoredAfterKill(const RuleList& rules, const std::function<void(ClientThread&)>& waitForMoment)
    {
        ClientThread setter([&](IVdFrwkLocalController& controller) { return rules.Set(controller); });
        waitForMoment(setter);
        Service::Kill();
        const bool areStored = rules.AreStored(m_service);
        EXPECT_TRUE(areStored || FAILED(setter.Result())) << "the client was told that they are";
        return areStored;
    }
};

} // namespace

TEST_F(RuleStoreTest, AServiceThatIsKilledLeavesTheOldOrTheNewRules)
{
    const List rules[] = {RandomRules(Scaled(5000), 1), RandomRules(Scaled(5000), 2)};
    const RuleList lists[] = {RuleList(rules[0]), RuleList(rules[1])};
    const ULONGLONG start = GetTickCount64();
    EXPECT_TRUE(
        AreStoredAfterKill(lists[0], [](ClientThread& setter) { EXPECT_EQ(setter.Result(), Framework::Success); }))
        << "after the write";
    const auto duration = static_cast<unsigned>(GetTickCount64() - start);

    int stored = 0;
    const auto expectOldOrNew = [&](const std::string& moment, const std::function<void(ClientThread&)>& waitForMoment)
    {
        stored = AreStoredAfterKill(lists[1 - stored], waitForMoment) ? 1 - stored : stored;
        EXPECT_TRUE(lists[stored].AreStored(m_service)) << moment;
    };
    expectOldOrNew("before the service has the list", [](ClientThread&) {});
    const std::filesystem::path beside = File(L"Framework.new");
    remove(beside); // which a service that was killed may have left
    expectOldOrNew("during the write", [&](ClientThread&) { WaitUntil([&] { return exists(beside); }, 30'000, 0); });
    std::random_device random;
    for (int i = 0; i < RandomMoments; ++i)
    {
        const DWORD moment = random() % (duration + 1);
        expectOldOrNew("after " + std::to_string(moment) + " ms", [&](ClientThread&) { Sleep(moment); });
    }
    EXPECT_TRUE(QueryProfile(*Connect().Get(), FirewallRules) == rules[stored]) << "as the next process reads it";
}

TEST_F(RuleStoreTest, APersonPrintsTheRulesChangesThemAndLoadsThem)
{
    const std::wstring table = File(L"rules.txt");
    const std::wstring output = File(L"output.txt");
    const auto controller = Connect(); // keeps the service: who comes in the moment in which it ends is refused by Wine
    EXPECT_EQ(Service::Run(L"/Rules", table), 0u);
    EXPECT_EQ(Framework::ParseRules(ReadBytes(table)), Framework::FirstFirewallRules(m_service.Installed().Path()));

    const std::string changed = ReadBytes(table) + "block any TCP 0 - * * \"One more\" C:\\more.exe\r\n";
    WriteBytes(table, changed);
    EXPECT_EQ(Service::Run(L"/Rules \"" + table + L"\"", output), 0u);
    EXPECT_EQ(ReadBytes(output), "");
    const List rules = QueryProfile(*controller.Get(), FirewallRules);
    EXPECT_EQ(rules.size(), Framework::FirstFirewallRules(m_service.Installed().Path()).size() + 1);
    EXPECT_EQ(rules, Framework::ParseRules(changed));

    WriteBytes(table, "block any TCP 0 - * * good -\r\nblock any TCP wrong\r\n");
    EXPECT_EQ(Service::Run(L"/Rules \"" + table + L"\"", output), 1u);
    EXPECT_NE(ReadBytes(output).find("\nline 2: "), std::string::npos) << ReadBytes(output);
    EXPECT_EQ(Service::Run(L"/Rules \"" + File(L"missing.txt") + L"\"", output), 1u);
    EXPECT_EQ(QueryProfile(*controller.Get(), FirewallRules), rules);
}
