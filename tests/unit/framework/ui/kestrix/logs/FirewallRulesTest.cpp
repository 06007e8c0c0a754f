// What the list of rules becomes when the program of an event is allowed.

#include "framework/ui/kestrix/logs/FirewallRules.h"

#include "tests/support/DebugScale.h"
#include "tests/support/TraceRecorder.h"
#include "tests/unit/framework/ui/kestrix/logs/FirewallRuleKit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

using Texts = std::vector<std::wstring>;

// What a comparison of a rule with an event traces: it is left by a line of its own when they do not match.
Texts TracesOf(const std::wstring& name, const std::wstring& ruleName, std::uint32_t rule,
               const std::wstring& eventName, std::uint32_t event, bool matches)
{
    Texts texts{L"[Enter] " + name + L" [" + ruleName + L"=" + std::to_wstring(rule) + L"][" + eventName + L"=" +
                std::to_wstring(event) + L"]"};
    if (!matches)
    {
        texts.push_back(L"[Leave] " + name);
    }
    return texts;
}

TEST(FirewallRulesTest, ABlockRuleOfTheProgramInOtherLettersMakesWayForTheAllowRule)
{
    EXPECT_EQ(AllowSelected({BlockRule(L"C:\\A.EXE")}, Selected(L"c:\\a.exe")),
              FwRuleList{MadeRule(L"c:\\a.exe", L"a")});
}

TEST(FirewallRulesTest, TheNewRuleStandsFirstAndTheOthersKeepTheirOrder)
{
    FwRule other = BlockRule(L"C:\\b.exe");
    other.nField12 = 12;
    FwRule last = AllowRule(L"", Udp);
    last.abField20[19] = 20;
    EXPECT_EQ(AllowSelected({other, BlockRule(L"C:\\a.exe"), last}, Selected(L"C:\\a.exe")),
              (FwRuleList{MadeRule(L"C:\\a.exe", L"a"), other, last}));
}

TEST(FirewallRulesTest, AnAllowRuleThatMatchesLeavesTheProfileAsItIsWhereverItStands)
{
    const FwRule allow = AllowRule(L"C:\\a.exe");
    const FwRule block = BlockRule(L"C:\\a.exe");
    const FwRule other = BlockRule(L"C:\\b.exe");
    for (const FwRuleList& rules :
         {FwRuleList{allow}, FwRuleList{allow, block}, FwRuleList{block, allow}, FwRuleList{other, block, block, allow},
          FwRuleList{block, allow, other, block}, FwRuleList{allow, allow, block, block, other}})
    {
        EXPECT_EQ(AllowSelected(rules, Selected(L"C:\\a.exe")), std::nullopt) << rules.size();
    }
}

TEST(FirewallRulesTest, ARuleForAnyProtocolAndDirectionMatchesEverySelectionOfItsPath)
{
    for (const std::uint32_t protocol : {0u, 1u, Tcp, Udp, 47u, 0x10000u, 0xFFFFFFFFu})
    {
        for (const std::uint32_t direction : {0u, 1u, 2u, 3u, 0xFFFFFFFFu})
        {
            const FirewallSelection selection = Selected(L"C:\\a.exe", protocol, direction);
            EXPECT_EQ(AllowSelected({BlockRule(L"C:\\a.exe", FwRule::AnyProtocol)}, selection),
                      FwRuleList{MadeRule(L"C:\\a.exe", L"a", protocol)});
            EXPECT_EQ(AllowSelected({AllowRule(L"C:\\a.exe", FwRule::AnyProtocol)}, selection), std::nullopt);
        }
    }
}

TEST(FirewallRulesTest, ARuleOfAnotherProtocolStaysAndAnAllowRuleIsAddedAllTheSame)
{
    const FwRuleList rules{BlockRule(L"C:\\a.exe", Udp), AllowRule(L"C:\\a.exe", Udp)};
    FwRuleList expected = rules;
    expected.push_front(MadeRule(L"C:\\a.exe", L"a", Tcp));
    EXPECT_EQ(AllowSelected(rules, Selected(L"C:\\a.exe", Tcp)), expected);
    EXPECT_EQ(AllowSelected({}, Selected(L"C:\\a.exe", Tcp)), FwRuleList{MadeRule(L"C:\\a.exe", L"a", Tcp)})
        << "no rules at all";
}

TEST(FirewallRulesTest, AProtocolThatIsShownAsANumberCountsAs0AndItsRuleHas0)
{
    const FirewallSelection selection = Selected(L"C:\\a.exe", 0);
    EXPECT_EQ(AllowSelected({BlockRule(L"C:\\a.exe", 47), BlockRule(L"C:\\a.exe", 0),
                             BlockRule(L"C:\\a.exe", FwRule::AnyProtocol), BlockRule(L"C:\\a.exe", Tcp)},
                            selection),
              (FwRuleList{MadeRule(L"C:\\a.exe", L"a", 0), BlockRule(L"C:\\a.exe", 47), BlockRule(L"C:\\a.exe", Tcp)}));
}

TEST(FirewallRulesTest, RuleType0MatchesDirection2AndNotDirection1)
{
    struct
    {
        std::uint16_t type;
        std::uint32_t direction;
        bool matches;
    } const cases[] = {{0, 2, true},  {0, 1, false}, {0, 0, false}, {1, 1, true},     {1, 2, false}, {1, 0, false},
                       {2, 0, true},  {2, 1, true},  {2, 2, true},  {2, 99, true},    {3, 3, false}, {3, 1, false},
                       {3, 2, false}, {0, 3, false}, {1, 3, false}, {65535, 1, false}};

    TraceRecorder trace;
    for (const auto& [type, direction, matches] : cases)
    {
        trace.Clear();
        EXPECT_EQ(MatchRuleType(type, direction), matches) << type << ' ' << direction;
        EXPECT_EQ(trace.Texts(VdCommon::TraceLevel::Flow),
                  TracesOf(L"CZPTLogPFW::MatchRuleType", L"_nRuleType", type, L"_nEvtDirection", direction, matches));
    }
}

TEST(FirewallRulesTest, AProtocolMatchesItselfAndARuleForAnyMatchesAll)
{
    struct
    {
        std::uint32_t rule;
        std::uint32_t event;
        bool matches;
    } const cases[] = {{6, 6, true},  {6, 17, false},     {0, 0, true},
                       {0, 6, false}, {0x10000, 6, true}, {6, 0x10000, false}};

    TraceRecorder trace;
    for (const auto& [rule, event, matches] : cases)
    {
        trace.Clear();
        EXPECT_EQ(MatchProtocolType(rule, event), matches) << rule << ' ' << event;
        EXPECT_EQ(trace.Texts(VdCommon::TraceLevel::Flow), TracesOf(L"CZPTLogPFW::MatchProtocolType", L"_nProtocolType",
                                                                    rule, L"_nEvtProtocol", event, matches));
    }
}

TEST(FirewallRulesTest, APathMatchesLetterByLetterInCapitalsAndNotAsAPatternOrAFolder)
{
    const std::pair<const wchar_t*, const wchar_t*> same[] = {
        {L"C:\\a.exe", L"c:\\A.EXE"},
        {L"C:\\\x0416\x00FC.exe", L"c:\\\x0436\x00DC.EXE"}, // Cyrillic, and a vowel with dots
        {L"\\Device\\HarddiskVolume1\\a.exe", L"\\DEVICE\\HARDDISKVOLUME1\\A.EXE"},
        {L"   ", L"   "},
        {L"\"C:\\a.exe\"", L"\"c:\\a.exe\""},
    };
    for (const auto& [rule, event] : same)
    {
        EXPECT_EQ(AllowSelected({AllowRule(rule)}, Selected(event)), std::nullopt) << rule;
    }
    const std::pair<const wchar_t*, const wchar_t*> different[] = {
        {L"C:\\*.exe", L"C:\\a.exe"},
        {L"C:\\", L"C:\\a.exe"},
        {L"C:\\a.exe ", L"C:\\a.exe"},
        {L"C:/a.exe", L"C:\\a.exe"},
        {L"", L"C:\\a.exe"},
        {L"C:\\folder\\..\\a.exe", L"C:\\a.exe"},
        {L"C:\\stra\x00DF"
         L"e",
         L"C:\\strasse"},
        {L"C:\\a.exe.exe", L"C:\\a.exe"},
        {L"C:\\?.exe", L"C:\\a.exe"},
    };
    for (const auto& [rule, event] : different)
    {
        EXPECT_TRUE(AllowSelected({AllowRule(rule)}, Selected(event))) << rule;
    }
}

TEST(FirewallRulesTest, ARuleWithAnotherActionStaysAndDecidesNothing)
{
    const FwRule other = MakeRule(L"C:\\a.exe", 2);
    EXPECT_EQ(AllowSelected({other, BlockRule(L"C:\\a.exe")}, Selected(L"C:\\a.exe")),
              (FwRuleList{MadeRule(L"C:\\a.exe", L"a"), other}));
}

TEST(FirewallRulesTest, TheNameOfTheRuleIsTheFileNameAndThePathStandsAsItWasTold)
{
    const std::wstring longName(300, L'x');
    const std::pair<std::wstring, std::wstring> cases[] = {
        {L"C:\\Program Files\\a b\\browser.exe", L"browser"},
        {L"C:\\a.b.exe", L"a.b"},
        {L"C:\\folder.d\\program", L"program"},
        {L"C:/folder/program.exe", L"program"},
        {L"program.exe", L"program"},
        {L"program", L"program"},
        {L"C:program.exe", L"program"},
        {L"C:\\folder\\", L""},
        {L"C:\\.exe", L""},
        {L"\\\\server\\share\\a.exe", L"a"},
        {L"\\Device\\HarddiskVolume2\\a.exe", L"a"},
        {L"\"C:\\a.exe\"", L"a"},
        {L"C:\\\x0416\x4E2D.exe", L"\x0416\x4E2D"},
        {L"   ", L"   "},
        {L"C:", L""},
        {L"x", L"x"},
        {longName + L".exe", longName.substr(0, 255)},
        {longName.substr(0, 255) + L".exe", longName.substr(0, 255)},
    };
    for (const auto& [path, name] : cases)
    {
        EXPECT_EQ(AllowSelected({}, Selected(path)), FwRuleList{MadeRule(path, name)}) << path;
    }
}

TEST(FirewallRulesTest, TheNewListIsTheRuleAndTheOldListInOrder)
{
    FwRuleList old{BlockRule(L"C:\\b.exe"), BlockRule(L"C:\\c.exe")};
    FwRuleList expected = old;
    expected.push_front(MadeRule(L"C:\\a.exe", L"a", Udp));
    FwRuleList changed;
    const TraceRecorder trace;
    EXPECT_TRUE(GenerateAllowRuleForApplication(old, changed, L"C:\\a.exe", Selected(L"C:\\x.exe", Udp)));
    EXPECT_EQ(changed, expected);
    EXPECT_EQ(trace.Texts(), (Texts{L"nProtocol = 17", L"[Leave] CZPTLogPFW::GenerateAllowRuleForApplication"}));
}

TEST(FirewallRulesTest, OnlyRulesThatBlockAreCounted)
{
    EXPECT_EQ(CountBlockRules({BlockRule(L"C:\\A.exe"), AllowRule(L"C:\\a.exe"), BlockRule(L"C:\\b.exe"),
                               BlockRule(L"C:\\a.exe", Udp), BlockRule(L"C:\\a.exe", FwRule::AnyProtocol, 1),
                               BlockRule(L"C:\\a.exe", Tcp, 0), BlockRule(L"")},
                              Selected(L"C:\\a.exe")),
              2u);
    EXPECT_EQ(CountBlockRules({}, Selected(L"C:\\a.exe")), 0u);
}

namespace
{

// The search written down step by step, as it is told: after each rule that goes it begins anew.
class StepByStep
{
public:
    StepByStep(FwRuleList rules, FirewallSelection selection)
        : m_rules(rules.begin(), rules.end()), m_selection(std::move(selection))
    {
    }

    std::optional<FwRuleList> Outcome()
    {
        for (const FwRule& rule : m_rules)
        {
            Matches(rule);
        }
        while (!Pass())
        {
        }
        if (!m_bAdd)
        {
            return std::nullopt;
        }
        Say(L"Adding new ALLOW rule [" + std::to_wstring(m_rules.size()) + L"]");
        m_traces.push_back(L"[Enter] CZPTLogPFW::GenerateAllowRuleForApplication");
        m_traces.push_back(L"nProtocol = " + std::to_wstring(m_selection.nProtocol));
        m_traces.push_back(L"[Leave] CZPTLogPFW::GenerateAllowRuleForApplication");
        FwRuleList changed(m_rules.begin(), m_rules.end());
        changed.push_front(MadeRule(m_selection.szAppPath, L"a", m_selection.nProtocol));
        Say(L"After set new rule [" + std::to_wstring(changed.size()) + L"]");
        return changed;
    }

    const Texts& Traces() const { return m_traces; }

private:
    // From the start of the list; false when a rule has gone.
    bool Pass()
    {
        m_bAdd = true;
        for (std::size_t i = 0; i < m_rules.size(); ++i)
        {
            const FwRule& rule = m_rules[i];
            if (!Matches(rule))
            {
                continue;
            }
            Say(L"Found target rule");
            Say(L"Src IP [" + rule.strSrcIP + L"]");
            Say(L"Dst IP [" + rule.strDstIP + L"]");
            Say(L"Port list[" + rule.strPortList + L"]");
            Say(L"Port type [" + std::to_wstring(rule.nPortType) + L"]");
            if (rule.nAction == 1)
            {
                m_rules.erase(m_rules.begin() + static_cast<std::ptrdiff_t>(i));
                return false;
            }
            m_bAdd = m_bAdd && rule.nAction != 0;
        }
        return true;
    }

    bool Matches(const FwRule& rule)
    {
        const bool isSame = std::ranges::equal(rule.strAppPath, m_selection.szAppPath, {}, towlower, towlower);
        if (rule.strAppPath.empty() || !isSame)
        {
            return false;
        }
        m_traces.push_back(L"[Enter] CZPTLogPFW::MatchProtocolType [_nProtocolType=" +
                           std::to_wstring(rule.nProtocolType) + L"][_nEvtProtocol=" +
                           std::to_wstring(m_selection.nProtocol) + L"]");
        if (rule.nProtocolType != m_selection.nProtocol && rule.nProtocolType != 65536)
        {
            m_traces.push_back(L"[Leave] CZPTLogPFW::MatchProtocolType");
            return false;
        }
        m_traces.push_back(L"[Enter] CZPTLogPFW::MatchRuleType [_nRuleType=" + std::to_wstring(rule.nRuleType) +
                           L"][_nEvtDirection=" + std::to_wstring(m_selection.nDirection) + L"]");
        if (rule.nRuleType == 2 || rule.nRuleType + m_selection.nDirection == 2)
        {
            return true;
        }
        m_traces.push_back(L"[Leave] CZPTLogPFW::MatchRuleType");
        return false;
    }

    void Say(const std::wstring& text)
    {
        m_traces.push_back(L"[CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule] " + text);
    }

    std::vector<FwRule> m_rules;
    FirewallSelection m_selection;
    Texts m_traces;
    bool m_bAdd = true;
};

// A rule of few different values, so that many match.
FwRule RuleOfChance(std::mt19937& random)
{
    constexpr const wchar_t* paths[] = {L"C:\\a.exe", L"c:\\A.EXE", L"C:\\b.exe", L""};
    constexpr std::uint32_t protocols[] = {Tcp, Udp, 0x10000};
    FwRule rule = MakeRule(paths[random() % 4], static_cast<std::uint16_t>(random() % 3), protocols[random() % 3],
                           static_cast<std::uint16_t>(random() % 3));
    rule.strSrcIP = std::to_wstring(random() % 1000);
    rule.strDstIP = std::to_wstring(random() % 1000);
    rule.strPortList = std::to_wstring(random() % 1000);
    rule.nPortType = static_cast<std::uint16_t>(random());
    return rule;
}

} // namespace

TEST(FirewallRulesTest, ListsOfChanceHaveTheOutcomeAndTheTracesOfTheSearchThatBeginsAnew)
{
    TraceRecorder trace;
    std::mt19937 random(20261122);
    for (int i = 0; i < 100; ++i)
    {
        FwRuleList rules;
        std::generate_n(std::back_inserter(rules), random() % 12, [&] { return RuleOfChance(random); });
        const FirewallSelection selection = Selected(L"C:\\a.exe", Tcp, 1 + random() % 2);
        StepByStep expected(rules, selection);
        const auto outcome = expected.Outcome();
        trace.Clear();
        ASSERT_EQ(AllowSelected(rules, selection), outcome) << i;
        ASSERT_EQ(trace.Texts(VdCommon::TraceLevel::Flow), expected.Traces()) << i;
    }
}

// The first half of the rules fits another protocol and is met again after each rule of the other half that goes.
TEST(FirewallRulesTest, FiveThousandRulesOfOneProgramAreDecidedLikeFew)
{
    constexpr std::size_t half = Scaled(2500);
    FwRuleList rules(half, BlockRule(L"C:\\a.exe", Udp));
    FwRuleList expected = rules;
    expected.push_front(MadeRule(L"C:\\a.exe", L"a", Tcp));
    rules.resize(2 * half, BlockRule(L"C:\\a.exe", Tcp));
    EXPECT_EQ(AllowSelected(std::move(rules), Selected(L"C:\\a.exe")), expected);
}
