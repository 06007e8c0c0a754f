#include "suite/framework/FirewallRules.h"

#include "suite/samples/Month.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

using namespace Framework;

namespace
{

constexpr std::uint32_t AnyProtocol = 0x10000;

struct Rule
{
    std::wstring program;
    std::uint32_t protocol;
    std::uint16_t direction;
    bool blocks;

    auto operator<=>(const Rule&) const = default;
};

// What of an event decides which rules are for it.
struct Event
{
    std::wstring program;
    std::uint32_t protocol;
    std::uint32_t direction; // 1 in, 2 out

    auto operator<=>(const Event&) const = default;
};

// Those of the sample logs.
std::vector<Rule> FirstRules()
{
    std::vector<Rule> rules;
    for (const Value& value : FirstFirewallRules(SAMPLES_FOLDER))
    {
        const List& rule = std::get<List>(value);
        rules.push_back({std::get<std::wstring>(rule[RuleProgram]), std::get<std::uint32_t>(rule[RuleProtocol]),
                         std::get<std::uint16_t>(rule[RuleDirection]), rule[RuleAction] == Value(std::uint16_t{1})});
    }
    return rules;
}

// Those of a month of the sample logs.
std::set<Event> SampleEvents()
{
    const Samples::Kind* const kind = Samples::FindKind(L"PFG");
    constexpr std::chrono::year_month_day end{std::chrono::year(2026), std::chrono::November, std::chrono::day(21)};
    std::set<Event> events;
    Samples::MakeMonth({&kind, 1}, end, 30, 1,
                       [&](const Samples::Kind&, Samples::Date, std::span<const std::wstring> lines)
                       {
                           for (const std::wstring& line : lines)
                           {
                               std::vector<std::wstring> tokens(1);
                               for (const wchar_t letter : line)
                               {
                                   letter == L'|' ? tokens.emplace_back() : tokens.back() += letter;
                               }
                               events.insert({tokens[13], static_cast<std::uint32_t>(std::stoul(tokens[5])),
                                              static_cast<std::uint32_t>(std::stoul(tokens[3]))});
                           }
                       });
    return events;
}

bool IsFor(const Rule& rule, const Event& event)
{
    const std::uint16_t direction = event.direction == 2 ? 0 : 1;
    return rule.program == event.program && (rule.protocol == event.protocol || rule.protocol == AnyProtocol) &&
           (rule.direction == direction || rule.direction == 2);
}

bool HasRule(const std::vector<Rule>& rules, const Event& event, bool blocks)
{
    return std::ranges::any_of(rules, [&](const Rule& rule) { return rule.blocks == blocks && IsFor(rule, event); });
}

} // namespace

TEST(FirewallRulesTest, TheFirstRulesAreRules)
{
    const List rules = FirstFirewallRules(SAMPLES_FOLDER);
    EXPECT_GT(rules.size(), 20u);
    EXPECT_TRUE(AreFirewallRules(rules));
    EXPECT_TRUE(AreFirewallRules({Value(UsualRule())}));
}

TEST(FirewallRulesTest, EveryProgramOfTheFirstRulesHasEventsInTheSampleLogs)
{
    std::set<std::wstring> programs;
    for (const Event& event : SampleEvents())
    {
        programs.insert(event.program);
    }
    for (const Rule& rule : FirstRules())
    {
        EXPECT_TRUE(programs.contains(rule.program)) << testing::PrintToString(rule.program);
    }
}

TEST(FirewallRulesTest, SampleEventsMeetRulesThatBlockRulesThatAllowBothAndNone)
{
    const std::vector<Rule> rules = FirstRules();
    std::set<std::pair<bool, bool>> met;
    for (const Event& event : SampleEvents())
    {
        if (!event.program.empty() && event.program != L"System")
        {
            met.insert({HasRule(rules, event, true), HasRule(rules, event, false)});
        }
    }
    EXPECT_EQ(met.size(), 4u);
}

TEST(FirewallRulesTest, TheFirstRulesHaveEveryActionAnyProtocolABareOneAndRulesOfNoProgram)
{
    std::set<std::uint32_t> protocols;
    std::set<std::pair<bool, bool>> kinds; // of no program, blocks
    for (const Rule& rule : FirstRules())
    {
        protocols.insert(rule.protocol);
        kinds.insert({rule.program.empty(), rule.blocks});
    }
    EXPECT_EQ(protocols, (std::set<std::uint32_t>{1, 2, 6, 17, 47, 50, 58, AnyProtocol}));
    EXPECT_EQ(kinds.size(), 4u);
}
