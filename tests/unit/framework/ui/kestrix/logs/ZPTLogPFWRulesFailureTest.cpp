// The firewall log and a profile that cannot be read or written, or that answers with something else.

#include "tests/unit/common/WireArray.h"
#include "tests/unit/framework/ui/kestrix/logs/FirewallRulesLogTest.h"

namespace
{

using ZPTLogPFWRulesFailureTest = FirewallRulesLogTest;
using Step = ControllerDouble::Step;

constexpr auto NoServer = static_cast<HRESULT>(0x800706BA);
constexpr auto Denied = static_cast<HRESULT>(0x80070005);

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

TEST_F(ZPTLogPFWRulesFailureTest, WithoutAServiceNothingIsTracedOfTheFailureAndNothingIsWritten)
{
    m_service.Controller().Fail(Step::Create, NoServer);
    EXPECT_EQ(Traces(), (Texts{Enter, Checking, EnterQuery, Leave}));
    EXPECT_EQ(m_service.m_nWrites, 0);
}

TEST_F(ZPTLogPFWRulesFailureTest, WithoutAProfileNothingIsWritten)
{
    m_service.Controller().Fail(Step::Profile, NoServer);
    EXPECT_EQ(Traces(),
              (Texts{Enter, Checking, EnterQuery, L"[CZPTLogPFW::QueryPfwRules] failed [-2147023174]", Leave}));
    m_service.Controller().GiveNothing(Step::Profile);
    EXPECT_EQ(Traces(), (Texts{Enter, Checking, EnterQuery, L"[CZPTLogPFW::QueryPfwRules] failed [0]", Leave}));
    EXPECT_EQ(m_service.m_nWrites, 0);
}

TEST_F(ZPTLogPFWRulesFailureTest, AQueryThatFailsIsTracedAndNothingIsWritten)
{
    m_service.Controller().Fail(Step::Query, NoServer);
    EXPECT_EQ(Traces(),
              (Texts{Enter, Checking, EnterQuery, L"[CZPTLogPFW::QueryPfwRules] err Code: (800706BA08)", Leave}));
    EXPECT_EQ(m_service.m_nWrites, 0);
}

TEST_F(ZPTLogPFWRulesFailureTest, AQueryThatFailsInTheMiddleOfItsAnswerWritesNothingAndItsArrayIsDestroyed)
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
TEST_F(ZPTLogPFWRulesFailureTest, AnAnswerOfAnotherShapeIsTracedAndCountsAsFarAsItCanBeRead)
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

TEST_F(ZPTLogPFWRulesFailureTest, AWriteThatIsRefusedIsTracedAndLeavesTheProfileAsItIs)
{
    const FwRuleList rules{BlockRule(L"C:\\b.exe")};
    m_service.m_rules = rules;
    m_service.Controller().Fail(Step::Set, Denied);
    EXPECT_EQ(Traces(),
              AddedAfter({}, 2) + (Texts{L"[CZPTLogPFW::StorePfwRules] Failed, error code = [8007000508]", Leave}));
    EXPECT_EQ(m_service.m_rules, rules);
}

// The service goes after the rules are read.
TEST_F(ZPTLogPFWRulesFailureTest, AServiceThatIsGoneBeforeTheWriteIsTracedAsFarAsItCameAndNoMore)
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

TEST_F(ZPTLogPFWRulesFailureTest, AnEmptyListIsNotStored)
{
    const TraceRecorder trace;
    EXPECT_FALSE(m_log.StorePfwRules({}));
    EXPECT_EQ(trace.Texts(), (Texts{L"[Enter] CZPTLogPFW::StorePfwRules [0]",
                                    L"[CZPTLogPFW::StorePfwRules] cComPrfFwRules create failed"}));
    EXPECT_EQ(m_service.m_nWrites, 0);
}

} // namespace
