// The list of rules of the firewall and its array.

#include "common/DataConversion/Frwk_ComPrfFwRules.h"

#include "tests/support/AllocationWatch.h"
#include "tests/unit/common/DataConversion/FwRuleSample.h"
#include "tests/unit/common/FrameworkValues.h"
#include "tests/unit/common/WireText.h"

namespace
{

using namespace Frwk::DataTypes;

using FirewallRules = FrameworkValues;

constexpr wchar_t ListFailed[] = L"*** ComPrfFwRules::GetPrfFwRules() - this->GetAtPrfFwRule() failed.";

FwRule Named(const wchar_t* name)
{
    FwRule rule = SampleRule();
    rule.strName = name;
    return rule;
}

// The rule of the samples under another name, written by hand.
VARIANT OnTheWire(const wchar_t* name)
{
    std::vector<VARIANT> elements = SampleElements();
    ::VariantClear(&elements[2]);
    elements[2] = Wire::Text(name);
    return Wire::Array(OwnedArray(std::span<const VARIANT>(elements)));
}

OwnedArray Written(const FwRuleList& list)
{
    ComPrfFwRules array;
    EXPECT_TRUE(array.CreateArray(static_cast<std::uint32_t>(list.size())));
    EXPECT_TRUE(array.SetPrfFwRules(list));
    return OwnedArray(array.GetSafeArray());
}

bool ReadRules(const OwnedArray& wire, FwRuleList& list)
{
    ComPrfFwRules array;
    EXPECT_TRUE(array.Attach(wire.Get()));
    return array.GetPrfFwRules(list);
}

TEST_F(FirewallRules, ListOf3IsAnArrayOf3AndComesBackInTheSameOrder)
{
    const FwRuleList list{Named(L"c"), Named(L"a"), Named(L"b")};
    const OwnedArray wire = Written(list);
    EXPECT_EQ(wire->cDims, 1);
    EXPECT_EQ(wire->rgsabound[0].cElements, 3u);
    EXPECT_EQ(wire->rgsabound[0].lLbound, 0);
    const OwnedArray byHand{OnTheWire(L"c"), OnTheWire(L"a"), OnTheWire(L"b")};
    EXPECT_EQ(Wire::TextOf(wire.Get()), Wire::TextOf(byHand.Get()));
    FwRuleList back{Named(L"old")};
    EXPECT_TRUE(ReadRules(byHand, back));
    EXPECT_EQ(back, list);
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(FirewallRules, EmptyListIsNotWritten)
{
    ComPrfFwRules array;
    EXPECT_FALSE(array.SetPrfFwRules({}));
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(FirewallRules, ArrayOfNoElementsIsSuccessWithAnEmptyList)
{
    FwRuleList list{Named(L"old")};
    EXPECT_TRUE(ReadRules(OwnedArray(VT_VARIANT, {{0, 0}}), list));
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(FirewallRules, WithoutAnArrayTheListIsEmptyToo)
{
    const ComPrfFwRules array;
    FwRuleList list{Named(L"old")};
    EXPECT_TRUE(array.GetPrfFwRules(list));
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::GetElementCount() - this->m_lpSafeArray was invalid."});
}

TEST_F(FirewallRules, OneAloneIsReadByItsIndexAndLeavesNothingBehind)
{
    const OwnedArray wire{OnTheWire(L"a"), OnTheWire(L"b")};
    const long before = m_memory.BlocksOut();
    ComPrfFwRules array;
    ASSERT_TRUE(array.Attach(wire.Get()));
    FwRule rule;
    EXPECT_TRUE(array.GetAtPrfFwRule(rule, 1));
    EXPECT_EQ(rule, Named(L"b"));
    EXPECT_EQ(m_memory.BlocksOut(), before);
}

TEST_F(FirewallRules, ElementThatCannotBeReadFails)
{
    FwRuleList list;
    EXPECT_FALSE(ReadRules(OwnedArray(VT_BSTR, {{2, 0}}), list));
    EXPECT_EQ(Errors(), (Traces{L"*** VariantArray::GetElement() - ::SafeArrayGetElement() failed. [80020005]",
                                L"*** ComPrfFwRules::GetAtPrfFwRule() - this->GetElement() failed.", ListFailed}));
}

TEST_F(FirewallRules, ElementThatHoldsNoArrayFails)
{
    for (const VARIANT& element : {Wire::Number(1), Wire::Text(L"rule"), Wire::Value(VT_EMPTY, 0)})
    {
        FwRuleList list;
        EXPECT_FALSE(ReadRules(OwnedArray{element}, list));
        EXPECT_EQ(Errors(),
                  (Traces{L"*** VariantArray::Attach() - _lpSafeArray was invalid.",
                          L"*** ComPrfFwRules::GetAtPrfFwRule() - cComPrfFwRule.Attach() failed.", ListFailed}));
    }
}

TEST_F(FirewallRules, FirstRuleThatCannotBeReadEndsItAndThoseBeforeItStay)
{
    FwRuleList list{Named(L"old")};
    EXPECT_FALSE(ReadRules(
        OwnedArray{OnTheWire(L"a"), Wire::Array(OwnedArray{Wire::Value(VT_BOOL, 0)}), OnTheWire(L"c")}, list));
    EXPECT_EQ(list, FwRuleList{Named(L"a")});
    EXPECT_EQ(Errors(),
              (Traces{L"*** VariantArray::GetElement() - ::SafeArrayGetElement() failed. [8002000b]",
                      L"*** ComPrfFwRules::GetAtPrfFwRule() - cComPrfFwRule.GetPrfFwRule() failed.", ListFailed}));
}

TEST_F(FirewallRules, FirstRuleThatHasNoPlaceEndsTheWritingAndThoseBeforeItStay)
{
    const OwnedArray shorter(VT_VARIANT, {{1, 0}});
    ComPrfFwRules array;
    ASSERT_TRUE(array.Attach(shorter.Get()));
    EXPECT_FALSE(array.SetPrfFwRules({Named(L"a"), Named(L"b"), Named(L"c")}));
    EXPECT_EQ(Wire::TextOf(shorter.Get()), Wire::TextOf(OwnedArray{OnTheWire(L"a")}.Get()));
    EXPECT_EQ(Errors(), (Traces{L"*** VariantArray::PutElement() - ::SafeArrayPutElement() failed. [8002000b]",
                                L"*** ComPrfFwRules::SetPrfFwRules() - this->SetValueArray() failed."}));
}

TEST_F(FirewallRules, ListThatThereIsNoMemoryForFailsWithoutAnException)
{
    const OwnedArray wire{OnTheWire(L"a")};
    ComPrfFwRules array;
    ASSERT_TRUE(array.Attach(wire.Get()));
    FwRuleList list;
    {
        AllocationWatch heap;
        heap.FailAbove(sizeof(FwRule) - 1);
        EXPECT_FALSE(array.GetPrfFwRules(list));
    }
    EXPECT_TRUE(list.empty());
}

} // namespace
