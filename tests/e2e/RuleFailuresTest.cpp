// The viewer's allow rule while the service is killed: what is traced, and that the profile is whole.

#include "framework/ui/kestrix/logs/ZPTLogPFW.h"
#include "suite/framework/ValueSource.h"
#include "tests/e2e/Process.h"
#include "tests/e2e/RuleList.h"
#include "tests/e2e/ServiceFixture.h"
#include "tests/support/DebugScale.h"
#include "tests/support/TraceRecorder.h"
#include "tests/unit/suite/framework/RandomRules.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <thread>

namespace
{

using Framework::List;
using Texts = std::vector<std::wstring>;

constexpr wchar_t RefusedProgram[] = L"C:\\Program Files\\Pinecone Browser\\pinecone.exe";
constexpr std::uint32_t Outgoing = 2;
constexpr int MostTries = 8;

// Enough for a read that takes a while, and few enough for the memory of a debug test.
constexpr std::size_t Count = std::max<std::size_t>(Scaled(1500), 300);

// The parts of the viewer's transaction, which may be tried one by one.
struct Log : CZPTLogPFW
{
    using CZPTLogPFW::QueryPfwRules;
    using CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule;
    using CZPTLogPFW::StorePfwRules;
};

List RuleOfProgram(std::uint16_t action)
{
    List rule = MadeRule(RefusedProgram, L"pinecone", Tcp);
    rule[Framework::RuleAction] = action;
    return rule;
}

class RuleFailuresTest : public ServiceFixture
{
protected:
    RuleFailuresTest() { m_old.Store(m_service); }

    static int Allow()
    {
        const FirewallSelection selection{RefusedProgram, Outgoing, Tcp};
        return Log::RemoveSelectedPfwRuleAndAddAllowRule(&selection);
    }

    // Kills the service at the moment for which the function waits. The object's end waits for that.
    static std::jthread KillAt(const std::function<void()>& waitForMoment)
    {
        return std::jthread(
            [=]
            {
                waitForMoment();
                Service::Kill();
            });
    }

    // Reads the rules while the service is killed after this share of the time that it takes. False when that was too
    // early or too late for the call.
    bool ReadWhileKilled(double share, const Texts& failure)
    {
        const auto controller = Connect(); // so that no start of the service is timed
        FwRuleList rules;
        const ULONGLONG start = GetTickCount64();
        EXPECT_TRUE(Log::QueryPfwRules(rules));
        const auto duration = static_cast<double>(GetTickCount64() - start);
        m_traces.Clear();
        bool isRead = false;
        {
            const std::jthread killer = KillAt([=] { Sleep(static_cast<DWORD>(share * duration)); });
            isRead = Log::QueryPfwRules(rules);
        }
        return !isRead && StartsOf(m_traces.Errors()) == failure;
    }

    // The texts up to their first bracket that follows a blank: without the code of an error.
    static Texts StartsOf(Texts texts)
    {
        for (std::wstring& text : texts)
        {
            text.resize(std::min(text.size(), text.find_first_of(L"([", 1)));
        }
        return texts;
    }

    const List m_rules = RandomRules(Count, 3);
    const RuleList m_others{m_rules};
    const RuleList m_old{With(m_rules, m_rules.size() / 2, RuleOfProgram(1))};
    const RuleList m_new{With(m_rules, 0, RuleOfProgram(0))};
    TraceRecorder m_traces;
};

} // namespace

TEST_F(RuleFailuresTest, AServiceThatIsKilledBeforeOrAfterTheReadOrTheWriteLosesNothing)
{
    FwRuleList rules;
    Service::Kill();
    EXPECT_EQ(Allow(), 1) << "killed before the read";
    EXPECT_TRUE(m_traces.Errors().empty());
    Service::Kill();
    EXPECT_TRUE(m_new.AreStored(m_service)) << "killed after the write";

    EXPECT_TRUE(Log::QueryPfwRules(rules));
    Service::Kill();
    rules.pop_front();
    EXPECT_TRUE(Log::StorePfwRules(rules)) << "killed after the read, before the write";
    EXPECT_TRUE(m_others.AreStored(m_service));
    EXPECT_TRUE(m_traces.Errors().empty());
}

TEST_F(RuleFailuresTest, AServiceThatIsKilledDuringTheReadIsTracedAndTheProfileStays)
{
    bool isSeen = false;
    for (int i = 0; i < MostTries && !isSeen; ++i)
    {
        isSeen = ReadWhileKilled((1 + i % 4) / 5.0, {L"[CZPTLogPFW::QueryPfwRules] err Code: "});
    }
    EXPECT_TRUE(isSeen) << testing::PrintToString(m_traces.Errors());
    EXPECT_TRUE(m_old.AreStored(m_service));
}

// Somebody reads the stored rules, so that the new ones stand beside them until the service is killed.
TEST_F(RuleFailuresTest, AServiceThatIsKilledDuringTheWriteIsTracedAndTheProfileStays)
{
    const auto controller = Connect();
    const UniqueFile reader(CreateFileW(m_service.Installed().File(L"Framework.dat").c_str(), GENERIC_READ,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(reader);
    const std::filesystem::path beside = m_service.Installed().File(L"Framework.new");
    bool isWritten = false;
    {
        const std::jthread killer = KillAt([&] { isWritten = WaitUntil([&] { return exists(beside); }); });
        EXPECT_EQ(Allow(), 1);
    }
    EXPECT_TRUE(isWritten) << "the rules are not written beside those that are there";
    EXPECT_TRUE(m_old.AreStored(m_service));
    EXPECT_EQ(StartsOf(m_traces.Errors()), Texts{L"[CZPTLogPFW::StorePfwRules] Failed, error code = "});
    EXPECT_EQ(m_traces.Texts(VdCommon::TraceLevel::Flow).back(),
              L"[Leave] CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule");
}
