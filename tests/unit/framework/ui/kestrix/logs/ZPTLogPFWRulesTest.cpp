// The firewall log and the rules of the active profile: read all, decide, write all.

#include "framework/ui/kestrix/logs/ZPTLogPFW.h"

#include "platform/dialog/ComUse.h"
#include "tests/support/DebugScale.h"
#include "tests/support/FirewallService.h"
#include "tests/support/LogFixture.h"
#include "tests/support/RandomFwRules.h"
#include "tests/support/TraceRecorder.h"
#include "tests/unit/common/WireArray.h"
#include "tests/unit/framework/ui/kestrix/logs/FirewallRuleKit.h"

#include <vector>

namespace
{

using Texts = std::vector<std::wstring>;
using Step = ControllerDouble::Step;

constexpr auto NoServer = static_cast<HRESULT>(0x800706BA);
constexpr auto Denied = static_cast<HRESULT>(0x80070005);

class OpenFirewallLog : public CZPTLogPFW
{
public:
    using CZPTLogPFW::IsBlockEnabled;
    using CZPTLogPFW::m_Selection;
    using CZPTLogPFW::QueryPfwRules;
    using CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule;
    using CZPTLogPFW::StorePfwRules;
};

// Before the service, which needs it.
class WithApartment
{
    const ComUse m_com;
};

// A log that shows a blocked event of a program.
class ZPTLogPFWRulesTest : private WithApartment, public LogFixture<OpenFirewallLog>
{
protected:
    ZPTLogPFWRulesTest() { ShowProgram(L"C:\\a.exe"); }

    ~ZPTLogPFWRulesTest() override { EXPECT_EQ(m_service.Controller().References(), 0); }

    // Whether the button is there for an event of the program.
    bool ShowProgram(const std::wstring& program)
    {
        Show(L"103015|4|1|2|x|6|2|192.0.2.10|49152|192.0.2.20|443||e|" + program + L"|rule|message");
        return m_pane.AllowRule() == true;
    }

    // What the press of the button asks the service.
    Texts Calls()
    {
        m_service.Controller().m_calls.clear();
        m_log.AddAllowRule();
        return m_service.Controller().m_calls;
    }

    // What it traces, of all levels.
    Texts Traces()
    {
        const TraceRecorder trace;
        m_log.AddAllowRule();
        return trace.Texts();
    }

    FirewallService m_service;
};

const Texts ReadAlone{L"CreateInstance", L"GetActiveProfile", L"QueryValue 48 5 0 0 0 of 0"};

constexpr wchar_t Enter[] = L"[Enter] CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule";
constexpr wchar_t Checking[] = L"[CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule] Checking app [C:\\a.exe]";
constexpr wchar_t Leave[] = L"[Leave] CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule";
constexpr wchar_t EnterQuery[] = L"[Enter] CZPTLogPFW::QueryPfwRules";
constexpr wchar_t LeaveQuery[] = L"[Leave] CZPTLogPFW::QueryPfwRules";

Texts operator+(Texts first, const Texts& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

// The traces of an operation that ends with a list of so many rules, after this failure.
Texts AddedAfter(const Texts& failures, int count)
{
    const std::wstring before = std::to_wstring(count - 1);
    const std::wstring after = std::to_wstring(count);
    return Texts{Enter, Checking, EnterQuery} + failures +
           Texts{LeaveQuery,
                 L"[CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule] Adding new ALLOW rule [" + before + L"]",
                 L"[Enter] CZPTLogPFW::GenerateAllowRuleForApplication",
                 L"nProtocol = 6",
                 L"[Leave] CZPTLogPFW::GenerateAllowRuleForApplication",
                 L"[CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule] After set new rule [" + after + L"]",
                 L"[Enter] CZPTLogPFW::StorePfwRules [" + after + L"]"};
}

constexpr wchar_t LeaveStore[] = L"[Leave] CZPTLogPFW::StorePfwRules";

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
    m_service.Controller().Fail(Step::Query, NoServer);
    EXPECT_EQ(m_log.IsBlockEnabled(m_log.m_Selection), 0u);
    EXPECT_FALSE(m_log.IsBlockRuleActive());
}

TEST_F(ZPTLogPFWRulesTest, WithoutAServiceNothingIsTracedOfTheFailureAndNothingIsWritten)
{
    m_service.Controller().Fail(Step::Create, NoServer);
    EXPECT_EQ(Traces(), (Texts{Enter, Checking, EnterQuery, Leave}));
    EXPECT_EQ(m_service.m_nWrites, 0);
}

TEST_F(ZPTLogPFWRulesTest, WithoutAProfileNothingIsWritten)
{
    m_service.Controller().Fail(Step::Profile, NoServer);
    EXPECT_EQ(Traces(),
              (Texts{Enter, Checking, EnterQuery, L"[CZPTLogPFW::QueryPfwRules] failed [-2147023174]", Leave}));
    m_service.Controller().GiveNothing(Step::Profile);
    EXPECT_EQ(Traces(), (Texts{Enter, Checking, EnterQuery, L"[CZPTLogPFW::QueryPfwRules] failed [0]", Leave}));
    EXPECT_EQ(m_service.m_nWrites, 0);
}

TEST_F(ZPTLogPFWRulesTest, AQueryThatFailsIsTracedAndNothingIsWritten)
{
    m_service.Controller().Fail(Step::Query, NoServer);
    EXPECT_EQ(Traces(),
              (Texts{Enter, Checking, EnterQuery, L"[CZPTLogPFW::QueryPfwRules] err Code: (800706BA08)", Leave}));
    EXPECT_EQ(m_service.m_nWrites, 0);
}

TEST_F(ZPTLogPFWRulesTest, AQueryThatFailsInTheMiddleOfItsAnswerWritesNothingAndItsArrayIsDestroyed)
{
    SAFEARRAY* answered = nullptr;
    m_service.m_onQuery = [&](LPSAFEARRAY* array)
    {
        answered = *array = ::SafeArrayCreateVector(VT_VARIANT, 0, 3);
        return NoServer;
    };
    EXPECT_EQ(Calls(), ReadAlone);
    EXPECT_NE(answered, nullptr);
    EXPECT_EQ(m_service.m_nWrites, 0);
}

// The answer is what the service says: a list that has nothing in it, or nothing readable, is an empty list.
TEST_F(ZPTLogPFWRulesTest, AnAnswerOfAnotherShapeIsTracedAndCountsAsFarAsItCanBeRead)
{
    constexpr wchar_t listFailed[] = L"*** ComPrfFwRules::GetPrfFwRules() - this->GetAtPrfFwRule() failed.";
    constexpr wchar_t notRead[] = L"*** ComPrfFwRules::GetAtPrfFwRule() - this->GetElement() failed.";
    constexpr wchar_t mismatch[] = L"*** VariantArray::GetElement() - ::SafeArrayGetElement() failed. [80020005]";
    const Texts noArrayInIt{L"*** VariantArray::Attach() - _lpSafeArray was invalid.",
                            L"*** ComPrfFwRules::GetAtPrfFwRule() - cComPrfFwRule.Attach() failed.", listFailed};

    struct
    {
        const char* name;
        std::function<SAFEARRAY*()> answer;
        Texts failures;
    } const cases[] = {
        {"no array",
         [] { return nullptr; },
         {L"*** VariantArray::GetElementCount() - this->m_lpSafeArray was invalid."}},
        {"no rules",
         [] {
             return OwnedArray(VT_VARIANT, {{0, 0}}).Release();
         },
         {}},
        {"numbers",
         [] {
             return OwnedArray(VT_I4, {{2, 0}}).Release();
         },
         {mismatch, notRead, listFailed}},
        {"two dimensions",
         [] {
             return OwnedArray(VT_VARIANT, {{1, 0}, {1, 0}}).Release();
         },
         {mismatch, notRead, listFailed}},
        {"an empty element",
         [] {
             return OwnedArray(VT_VARIANT, {{1, 0}}).Release();
         },
         noArrayInIt},
        {"a text", [] { return OwnedArray{Wire::Text(L"rule")}.Release(); }, noArrayInIt},
        {"a rule of one element",
         [] { return OwnedArray{Wire::Array(OwnedArray{Wire::Value(VT_BOOL, 0)})}.Release(); },
         {L"*** VariantArray::GetElement() - ::SafeArrayGetElement() failed. [8002000b]",
          L"*** ComPrfFwRules::GetAtPrfFwRule() - cComPrfFwRule.GetPrfFwRule() failed.", listFailed}},
    };

    for (const auto& [name, answer, failures] : cases)
    {
        m_service.m_onQuery = [&answer](LPSAFEARRAY* array)
        {
            *array = answer();
            return S_OK;
        };
        EXPECT_EQ(Traces(), AddedAfter(failures, 1) + (Texts{LeaveStore, Leave})) << name;
        EXPECT_EQ(m_service.m_rules, FwRuleList{MadeRule(L"C:\\a.exe", L"a")}) << name;
    }
}

TEST_F(ZPTLogPFWRulesTest, AWriteThatIsRefusedIsTracedAndLeavesTheProfileAsItIs)
{
    const FwRuleList rules{BlockRule(L"C:\\b.exe")};
    m_service.m_rules = rules;
    m_service.Controller().Fail(Step::Set, Denied);
    EXPECT_EQ(Traces(),
              AddedAfter({}, 2) + (Texts{L"[CZPTLogPFW::StorePfwRules] Failed, error code = [8007000508]", Leave}));
    EXPECT_EQ(m_service.m_rules, rules);
}

// The service goes after the rules are read.
TEST_F(ZPTLogPFWRulesTest, AServiceThatIsGoneBeforeTheWriteIsTracedAsFarAsItCameAndNoMore)
{
    const std::pair<Step, Texts> cases[] = {
        {Step::Create, {}},
        {Step::Profile, {L"[CZPTLogPFW::StorePfwRules] failed [-2147023174]"}},
    };
    for (const auto& [step, failures] : cases)
    {
        m_service.Controller().m_onCall = [&, step = step](const std::wstring& call)
        {
            if (call.starts_with(L"QueryValue"))
            {
                m_service.Controller().Fail(step, NoServer);
            }
        };
        EXPECT_EQ(Traces(), AddedAfter({}, 1) + failures + Texts{Leave});
        EXPECT_EQ(m_service.m_nWrites, 0);
        m_service.Controller().Work(step);
    }
}

TEST_F(ZPTLogPFWRulesTest, AnEmptyListIsNotStored)
{
    const TraceRecorder trace;
    EXPECT_FALSE(m_log.StorePfwRules({}));
    EXPECT_EQ(trace.Texts(), (Texts{L"[Enter] CZPTLogPFW::StorePfwRules [0]",
                                    L"[CZPTLogPFW::StorePfwRules] cComPrfFwRules create failed"}));
    EXPECT_EQ(m_service.m_nWrites, 0);
}

TEST_F(ZPTLogPFWRulesTest, FiveThousandRulesComeBackAsTheyAreAfterTheNewOne)
{
    m_service.m_rules = RandomFwRules(20261122).List(Scaled(5000));
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
