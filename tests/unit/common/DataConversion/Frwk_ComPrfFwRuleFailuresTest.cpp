// Rules of the firewall that cannot be written, since memory is missing or the platform refuses. Of the failures that
// are traced one cannot come: the 20 bytes are a part of the rule and so are always there, unlike the 16 of a caller.

#include "common/DataConversion/Frwk_ComPrfFwRules.h"

#include "tests/support/AllocationWatch.h"
#include "tests/unit/common/DataConversion/FwRuleSample.h"
#include "tests/unit/common/FrameworkValues.h"

extern "C" decltype(&::SafeArrayCreate) __imp_SafeArrayCreate;
extern "C" decltype(&::SafeArrayPutElement) __imp_SafeArrayPutElement;

namespace
{

using namespace Frwk::DataTypes;

constexpr ULONG BlockSize = 16;
constexpr ULONG LongBlockSize = 20;
constexpr ULONG RuleSize = ComPrfFwRule::ElementCount;

constexpr wchar_t NotMade[] = L"*** VariantArray::CreateArray() - ::SafeArrayCreate() failed.";
constexpr wchar_t NotPut[] = L"*** VariantArray::PutElement() - ::SafeArrayPutElement() failed. [8007000e]";
constexpr wchar_t ByteNotPut[] = L"*** ComByteArray::SetByteArray() - this->SetValue() failed. [0]";
constexpr wchar_t RuleNotFilled[] = L"*** ComPrfFwRules::SetPrfFwRules() - cComPrfFwRule.SetPrfFwRule() failed.";

// The platform has no memory for arrays of so many elements, or to put anything at a place of such arrays.
class ArrayRefusal
{
public:
    static constexpr LONG NoPlace = -1;

    explicit ArrayRefusal(ULONG elements, LONG place = NoPlace) : m_nElements(elements), m_nPlace(place)
    {
        s_refusal = this;
    }

private:
    static SAFEARRAY* WINAPI Create(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds)
    {
        const bool refuses = s_refusal->m_nPlace == NoPlace && bounds->cElements == s_refusal->m_nElements;
        return refuses ? nullptr : s_refusal->m_create.Original()(type, dimensions, bounds);
    }

    static HRESULT WINAPI Put(SAFEARRAY* array, LONG* index, void* element)
    {
        const bool refuses = *index == s_refusal->m_nPlace && array->rgsabound[0].cElements == s_refusal->m_nElements;
        return refuses ? E_OUTOFMEMORY : s_refusal->m_put.Original()(array, index, element);
    }

    inline static const ArrayRefusal* s_refusal = nullptr;
    const ULONG m_nElements;
    const LONG m_nPlace;
    const ImportPatch<decltype(&::SafeArrayCreate)> m_create{__imp_SafeArrayCreate, &Create};
    const ImportPatch<decltype(&::SafeArrayPutElement)> m_put{__imp_SafeArrayPutElement, &Put};
};

class FirewallRuleFailures : public FrameworkValues
{
protected:
    FirewallRuleFailures() { EXPECT_TRUE(m_rules.CreateArray(1)); }

    void TearDown() override
    {
        m_rules.DestroyArray();
        FrameworkValues::TearDown();
    }

    bool Write() { return m_rules.SetPrfFwRules({SampleRule()}); }

    ComPrfFwRules m_rules;
};

TEST_F(FirewallRuleFailures, ArrayThatCannotBeMade)
{
    const std::pair<ULONG, Traces> cases[] = {
        {BlockSize,
         {NotMade, L"*** ComPrfFwRule::SetValueArrayBytes() - cComByteArray.Create() failed.", RuleNotFilled}},
        {LongBlockSize, {NotMade, L"*** ComPrfFwRule::SetPrfFwRule() - cComByteArray.Create() failed.", RuleNotFilled}},
        {RuleSize, {NotMade, L"*** ComPrfFwRules::SetPrfFwRules() - cComPrfFwRule.Create() failed."}},
    };
    for (const auto& [elements, traces] : cases)
    {
        const ArrayRefusal refusal(elements);
        EXPECT_FALSE(Write());
        EXPECT_EQ(Errors(), traces) << elements;
    }
    EXPECT_TRUE(Write());
}

TEST_F(FirewallRuleFailures, ElementThatCannotBePut)
{
    const struct
    {
        ULONG elements;
        LONG place;
        Traces traces;
    } cases[] = {
        {BlockSize,
         0,
         {NotPut, ByteNotPut, L"*** ComPrfFwRule::SetValueArrayBytes() - cComByteArray.SetByteArray() failed.",
          RuleNotFilled}},
        {LongBlockSize,
         0,
         {NotPut, ByteNotPut, L"*** ComPrfFwRule::SetPrfFwRule() - cComByteArray.SetByteArray() failed.",
          RuleNotFilled}},
        {RuleSize,
         14,
         {NotPut, L"*** ComPrfFwRule::SetValueArrayBytes() - this->SetValueArray() failed.", RuleNotFilled}},
        {RuleSize, 20, {NotPut, L"*** ComPrfFwRule::SetPrfFwRule() - this->SetValueArray() failed.", RuleNotFilled}},
        {RuleSize, 2, {NotPut, RuleNotFilled}},
        {1, 0, {NotPut, L"*** ComPrfFwRules::SetPrfFwRules() - this->SetValueArray() failed."}},
    };

    for (const auto& [elements, place, traces] : cases)
    {
        const ArrayRefusal refusal(elements, place);
        EXPECT_FALSE(Write());
        EXPECT_EQ(Errors(), traces) << elements << ' ' << place;
    }
    EXPECT_TRUE(Write());
}

// A block takes one block of memory: those of 16 bytes come first, and the fifth is that of 20.
TEST_F(FirewallRuleFailures, BytesThatThereIsNoMemoryFor)
{
    const std::pair<int, const wchar_t*> cases[] = {
        {1, L"*** ComPrfFwRule::SetValueArrayBytes() - cArrayOfByte.Create() failed. [0x00000006]"},
        {4, L"*** ComPrfFwRule::SetValueArrayBytes() - cArrayOfByte.Create() failed. [0x00000006]"},
        {5, L"*** ComPrfFwRule::SetPrfFwRule() - cArrayOfByte.Create() failed. [0x00000006]"},
    };
    const FwRule rule = SampleRule();
    for (const auto& [number, trace] : cases)
    {
        ComPrfFwRule array;
        ASSERT_TRUE(array.CreateArray(RuleSize));
        {
            AllocationWatch heap;
            heap.FailOnly(number);
            EXPECT_FALSE(array.SetPrfFwRule(rule));
        }
        array.DestroyArray();
        EXPECT_EQ(Errors(), Traces{trace}) << number;
    }
}

TEST_F(FirewallRuleFailures, BytesThatAreNotThere)
{
    ComPrfFwRule array;
    ASSERT_TRUE(array.CreateArray(1));
    EXPECT_FALSE(array.SetValueArrayBytes(nullptr, BlockSize, 0));
    array.DestroyArray();
    EXPECT_EQ(Errors(),
              Traces{L"*** ComPrfFwRule::SetValueArrayBytes() - cArrayOfByte.SetData() failed. [0x00000006]"});
}

TEST_F(FirewallRuleFailures, TextThatThereIsNoMemoryFor)
{
    ComPrfFwRule array;
    ASSERT_TRUE(array.CreateArray(RuleSize));
    m_memory.Fail(true);
    EXPECT_FALSE(array.SetPrfFwRule(SampleRule()));
    m_memory.Fail(false);
    EXPECT_EQ(Errors(), Traces{NotPut});
    array.DestroyArray();
}

} // namespace
