// The firewall log and the rules of the active profile: read all, decide, write all.

#include "tests/support/DebugScale.h"
#include "tests/unit/common/DataConversion/FwRuleSample.h"
#include "tests/unit/framework/ui/kestrix/logs/FirewallRulesLogTest.h"

namespace
{

using ZPTLogPFWRulesTest = FirewallRulesLogTest;

TEST_F(ZPTLogPFWRulesTest, APressReadsAllRulesOnceAndWritesAllRulesOnce)
{
    FwRule other = BlockRule(L"C:\\b.exe");
    other.abField14[3] = 7;
    m_service.m_rules = {other, BlockRule(L"C:\\A.exe"), AllowRule(L"", Udp)};
    EXPECT_EQ(Calls(), ReadAlone + (Texts{L"CreateInstance", L"GetActiveProfile", L"SetValue 48 5 0 0 0 of 3"}));
    EXPECT_EQ(m_service.m_rules, (FwRuleList{MadeRule(L"C:\\a.exe", L"a"), other, AllowRule(L"", Udp)}));
}

TEST_F(ZPTLogPFWRulesTest, AProgramThatIsAllowedAlreadyWritesNothing)
{
    const FwRuleList rules{AllowRule(L"C:\\a.exe"), BlockRule(L"C:\\a.exe")};
    m_service.m_rules = rules;
    EXPECT_EQ(Calls(), ReadAlone);
    EXPECT_EQ(m_service.m_rules, rules);
    EXPECT_EQ(m_service.m_nWrites, 0);
}

TEST_F(ZPTLogPFWRulesTest, EachPressIsATransactionOfItsOwn)
{
    m_log.AddAllowRule();
    EXPECT_EQ(Calls(), ReadAlone) << "the rule is there already";
    m_service.m_rules.clear();
    m_log.AddAllowRule();
    EXPECT_EQ(m_service.m_rules.size(), 1u) << "no list is kept";
}

TEST_F(ZPTLogPFWRulesTest, APressIsTracedStepByStep)
{
    FwRule block = BlockRule(L"C:\\a.exe", Tcp, 0);
    block.strSrcIP = L"10.0.0.1";
    block.strDstIP = L"10.0.0.2";
    block.strPortList = L"80,443";
    block.nPortType = 3;
    m_service.m_rules = {block, BlockRule(L"C:\\b.exe")};
    const std::wstring step = L"[CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule] ";
    const Texts match{L"[Enter] CZPTLogPFW::MatchProtocolType [_nProtocolType=6][_nEvtProtocol=6]",
                      L"[Enter] CZPTLogPFW::MatchRuleType [_nRuleType=0][_nEvtDirection=2]"};
    const Texts expected = Texts{Enter, Checking, EnterQuery, LeaveQuery} + match + match +
                           Texts{step + L"Found target rule",
                                 step + L"Src IP [10.0.0.1]",
                                 step + L"Dst IP [10.0.0.2]",
                                 step + L"Port list[80,443]",
                                 step + L"Port type [3]",
                                 step + L"Adding new ALLOW rule [1]",
                                 L"[Enter] CZPTLogPFW::GenerateAllowRuleForApplication",
                                 L"nProtocol = 6",
                                 L"[Leave] CZPTLogPFW::GenerateAllowRuleForApplication",
                                 step + L"After set new rule [2]",
                                 L"[Enter] CZPTLogPFW::StorePfwRules [2]",
                                 LeaveStore,
                                 Leave};
    const TraceRecorder trace;
    m_log.AddAllowRule();
    EXPECT_EQ(trace.Texts(VdCommon::TraceLevel::Flow), expected);
    EXPECT_EQ(trace.Texts().size(), expected.size()) << "of all levels";
}

TEST_F(ZPTLogPFWRulesTest, WithoutAPageNothingIsAskedAndNothingBlocks)
{
    m_service.m_rules = {BlockRule(L"C:\\a.exe")};
    m_log.SetInfoDialog(nullptr);
    EXPECT_EQ(Calls(), Texts());
    EXPECT_FALSE(m_log.IsBlockRuleActive());
    EXPECT_EQ(m_service.Controller().m_calls, Texts());
    m_log.SetInfoDialog(&m_pane);
    EXPECT_TRUE(m_log.IsBlockRuleActive());
}

TEST_F(ZPTLogPFWRulesTest, ANullSelectionAndOneWithoutAProgramComeBackWith0)
{
    const TraceRecorder trace;
    EXPECT_EQ(m_log.RemoveSelectedPfwRuleAndAddAllowRule(nullptr), 0);
    const FirewallSelection none;
    EXPECT_EQ(m_log.RemoveSelectedPfwRuleAndAddAllowRule(&none), 0);
    EXPECT_EQ(trace.Texts(),
              (Texts{Enter, Enter, L"[CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule] Checking app []"}));
    EXPECT_EQ(m_service.Controller().m_calls, Texts());
    EXPECT_NE(m_log.RemoveSelectedPfwRuleAndAddAllowRule(&m_log.m_Selection), 0);
    EXPECT_NE(m_log.RemoveSelectedPfwRuleAndAddAllowRule(&m_log.m_Selection), 0) << "where nothing changes";
}

TEST_F(ZPTLogPFWRulesTest, BlockRulesAreCountedAndTracedOneByOne)
{
    m_service.m_rules = {BlockRule(L"C:\\b.exe", Udp, 1), BlockRule(L"C:\\A.exe")};
    const TraceRecorder trace;
    EXPECT_EQ(m_log.IsBlockEnabled(m_log.m_Selection), 1u);
    EXPECT_EQ(trace.Texts(),
              (Texts{L"[Enter] CZPTLogPFW::IsBlockEnabled", L"***XXDEBUG Path [C:\\a.exe]", L"***XXDEBUG Prot [6]",
                     L"***XXDEBUG Dir  [2]", EnterQuery, LeaveQuery, L"***DEBUG Path [C:\\b.exe]",
                     L"***DEBUG Prot [17]", L"***DEBUG Rule type  [1]", L"***DEBUG Act  [1]",
                     L"***DEBUG Path [C:\\A.exe]", L"***DEBUG Prot [6]", L"***DEBUG Rule type  [2]",
                     L"***DEBUG Act  [1]", L"[Enter] CZPTLogPFW::MatchProtocolType [_nProtocolType=6][_nEvtProtocol=6]",
                     L"[Enter] CZPTLogPFW::MatchRuleType [_nRuleType=2][_nEvtDirection=2]", L"Got one..[1]",
                     L"[Leave] CZPTLogPFW::IsBlockEnabled [count=1]"}));
}

TEST_F(ZPTLogPFWRulesTest, WithoutAProgramOrAServiceNoRuleBlocks)
{
    const TraceRecorder trace;
    EXPECT_EQ(m_log.IsBlockEnabled({}), 0u);
    EXPECT_EQ(trace.Texts(), Texts{L"[Enter] CZPTLogPFW::IsBlockEnabled"});
    m_service.m_rules = {BlockRule(L"C:\\a.exe")};
    m_service.Controller().Fail(ControllerDouble::Step::Query, E_FAIL);
    EXPECT_EQ(m_log.IsBlockEnabled(m_log.m_Selection), 0u);
    EXPECT_FALSE(m_log.IsBlockRuleActive());
}

TEST_F(ZPTLogPFWRulesTest, FiveThousandRulesComeBackAsTheyAreAfterTheNewOne)
{
    while (m_service.m_rules.size() < Scaled(5000))
    {
        FwRule& rule = m_service.m_rules.emplace_back(SampleRule());
        rule.strName = std::to_wstring(m_service.m_rules.size());
    }
    FwRuleList expected = m_service.m_rules;
    expected.push_front(MadeRule(L"C:\\a.exe", L"a"));
    m_log.AddAllowRule();
    EXPECT_EQ(m_service.m_rules, expected);
}

// Hostile or not, a path is either in the rule as it was told or has no button. What is told ends after 259 characters.
TEST_F(ZPTLogPFWRulesTest, TheRuleHasThePathExactlyAsItWasToldOrThereIsNoButton)
{
    const std::wstring longPath = L"C:\\" + std::wstring(300, L'x') + L".exe";
    const std::pair<std::wstring, std::wstring> told[] = {
        {L"\"C:\\Program Files\\a.exe\"", L"\"C:\\Program Files\\a.exe\""},
        {L"C:\\a\"b'c.exe", L"C:\\a\"b'c.exe"},
        {L"%s%n%d", L"%s%n%d"},
        {L"C:\\\x0416\x4E2D\xD83D\xDE00.exe", L"C:\\\x0416\x4E2D\xD83D\xDE00.exe"},
        {L"C:\\\xD800.exe", L"C:\\\xD800.exe"}, // half of a pair
        {L"\\Device\\HarddiskVolume3\\a.exe", L"\\Device\\HarddiskVolume3\\a.exe"},
        {L"\\\\?\\C:\\a.exe", L"\\\\?\\C:\\a.exe"},
        {L"   ", L"   "},
        {L"C:\\a\t\x01.exe", L"C:\\a\t\x01.exe"},
        {longPath.substr(0, 259), longPath.substr(0, 259)},
        {longPath.substr(0, 260), longPath.substr(0, 259)},
        {longPath, longPath.substr(0, 259)},
    };
    for (const auto& [program, path] : told)
    {
        EXPECT_TRUE(ShowProgram(program)) << program;
        m_service.m_rules.clear();
        m_log.AddAllowRule();
        ASSERT_EQ(m_service.m_rules.size(), 1u) << program;
        EXPECT_EQ(m_service.m_rules.front().strAppPath, path) << program;
    }
    for (const std::wstring& program : {std::wstring(), std::wstring(L"system"), Text(343)})
    {
        EXPECT_FALSE(ShowProgram(program)) << program;
    }
}

// A click on another row can come in while the service answers.
TEST_F(ZPTLogPFWRulesTest, TheSelectionThatWasPressedForCountsWhateverIsShownMeanwhile)
{
    m_service.m_rules = {BlockRule(L"C:\\a.exe"), BlockRule(L"C:\\b.exe")};
    m_service.Controller().m_onCall = [this](const std::wstring& call)
    {
        if (call.starts_with(L"QueryValue"))
        {
            ShowProgram(L"C:\\b.exe");
        }
    };
    m_log.AddAllowRule();
    EXPECT_EQ(m_log.m_Selection.szAppPath, L"C:\\b.exe");
    EXPECT_EQ(m_service.m_rules, (FwRuleList{MadeRule(L"C:\\a.exe", L"a"), BlockRule(L"C:\\b.exe")}));
}

} // namespace
