// A press of the button that allows a program, from the row that is selected to the rules that the service keeps.

#include "resource/resource.h"
#include "suite/framework/FirewallRules.h"
#include "suite/framework/ValueSource.h"
#include "tests/e2e/EventLogs.h"
#include "tests/e2e/RuleList.h"
#include "tests/e2e/ServiceFixture.h"
#include "tests/e2e/Viewer.h"
#include "tests/support/DebugScale.h"
#include "tests/support/LanguageFile.h"
#include "tests/unit/suite/framework/RandomRules.h"

#include <algorithm>

namespace
{

using Framework::FirewallRules;
using Framework::List;

// An event as the firewall writes it.
struct Event
{
    std::wstring program;
    std::uint32_t protocol = Tcp;
    int direction = 2; // outwards
};

std::wstring BlockedLine(const Event& event, std::size_t second)
{
    return L"1000" + std::to_wstring(59 - second) + L"|4|0|" + std::to_wstring(event.direction) + L"||" +
           std::to_wstring(event.protocol) + L"|2|LIP|49152|192.0.2.20|443|||" + event.program + L"||";
}

std::wstring TextAt(const Framework::Value& rule, std::size_t element)
{
    return std::get<std::wstring>(std::get<List>(rule)[element]);
}

// Element by element, so that a failure says where.
void ExpectSame(const List& rules, const List& expected, const char* when)
{
    ASSERT_EQ(rules.size(), expected.size()) << when;
    for (std::size_t rule = 0; rule < rules.size(); ++rule)
    {
        const List& elements = std::get<List>(rules[rule]);
        const List& wanted = std::get<List>(expected[rule]);
        ASSERT_EQ(elements.size(), wanted.size()) << when << ": rule " << rule;
        for (std::size_t element = 0; element < elements.size(); ++element)
        {
            EXPECT_TRUE(elements[element] == wanted[element]) << when << ": rule " << rule << ", element " << element;
        }
    }
}

class AllowRuleTest : public ServiceFixture
{
protected:
    // Opens the log of these blocked events, of which the first is listed first. No row is selected.
    void Open(const std::vector<Event>& events)
    {
        std::vector<std::wstring> lines;
        for (std::size_t i = events.size(); i-- > 0;)
        {
            lines.push_back(BlockedLine(events[i], i));
        }
        m_logs.Append(FirewallSubType, 20261120, lines);
        m_viewer.emplace(DatabaseCommandLine(FirewallLog));
        ASSERT_NE(m_viewer->Form(), nullptr);
        ASSERT_TRUE(PumpUntil([&] { return m_viewer->RowCount() == static_cast<int>(events.size()); }));
    }

    bool CanPress() const { return m_viewer->IsEnabled(IDC_ALLOW) && IsWindowVisible(m_viewer->Item(IDC_ALLOW)); }

    // Selects the next row by the keyboard, and presses the button, which is on from then until the press is over.
    void AllowNext()
    {
        ASSERT_FALSE(CanPress());
        m_viewer->PressKey(VK_DOWN);
        ASSERT_TRUE(PumpUntil([&] { return CanPress(); }));
        m_viewer->Click(IDC_ALLOW);
        ASSERT_TRUE(PumpUntil([&] { return !m_viewer->IsEnabled(IDC_ALLOW); }));
    }

    static List Rules() { return QueryProfile(*Connect().Get(), FirewallRules); }

    const LanguageFile m_language;
    const EventLogs m_logs{m_service.Installed()};
    std::optional<Viewer> m_viewer;
};

} // namespace

TEST_F(AllowRuleTest, APressMakesWayForTheProgramAndLeavesAllOtherRulesAsTheyAre)
{
    const struct
    {
        const char* name;
        Event event;
        std::wstring removed; // the name of the one rule that goes; empty when the program is allowed already
        std::wstring fileName;
        std::uint32_t protocol = Tcp;
    } cases[] = {
        {"a blocked program", {L"D:\\Games\\Marble Maze\\maze.exe"}, L"maze", L"maze"},
        {"a program that is allowed already", {L"C:\\Program Files\\Orchard Office\\writer.exe"}, L"", L""},
        {"a protocol that is shown as a number",
         {L"C:\\Users\\maria\\AppData\\Local\\Temp\\~installer\\unpack7.exe", 47},
         L"unpack7",
         L"unpack7",
         0},
        {"a path in other letters",
         {L"c:\\windows\\SYSTEM32\\NetSvcHost64.EXE", Tcp, 1},
         L"netsvchost64",
         L"NetSvcHost64"},
    };

    std::vector<Event> events;
    std::ranges::transform(cases, std::back_inserter(events), [](const auto& each) { return each.event; });
    Open(events);
    for (const auto& each : cases)
    {
        List expected = Rules();
        if (!each.removed.empty())
        {
            const auto found = std::ranges::find_if(expected, [&](const auto& rule)
                                                    { return TextAt(rule, Framework::RuleName) == each.removed; });
            ASSERT_NE(found, expected.end()) << each.name;
            expected.erase(found);
            expected.insert(expected.begin(), MadeRule(each.event.program, each.fileName, each.protocol));
        }
        AllowNext();
        ExpectSame(Rules(), expected, each.name);
    }
    EXPECT_EQ(m_viewer->Close(), 0u);
}

// The viewer reads and writes five thousand of them in one call each.
TEST_F(AllowRuleTest, TenThousandRulesOfChanceStayBitForBitAsTheyAreAfterANewOne)
{
    const std::wstring programs[] = {L"C:\\a.exe", L"C:\\b.exe"};
    Open({{programs[0]}, {programs[1]}});
    unsigned seed = 20261122;
    for (const std::wstring& program : programs)
    {
        std::printf("seed %u\n", seed);
        List rules = RandomRules(Scaled(5000), seed++);
        ASSERT_EQ(SetProfile(*Connect().Get(), FirewallRules, rules), Framework::Success);
        AllowNext();
        rules.insert(rules.begin(), MadeRule(program, program.substr(3, 1), Tcp));
        ExpectSame(Rules(), rules, "after the press");
    }
    EXPECT_EQ(m_viewer->Close(), 0u);
}
