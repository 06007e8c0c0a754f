// What is no list of firewall rules is refused, and the stored one stays.

#include "suite/framework/FirewallRules.h"
#include "suite/framework/SafeArray.h"
#include "tests/support/DebuggerOutput.h"
#include "tests/unit/suite/framework/SampleRule.h"
#include "tests/unit/suite/framework/ServiceFixture.h"

#include <oleauto.h>

using namespace Framework;

namespace
{

VARIANT* ElementsOf(SAFEARRAY& array)
{
    return static_cast<VARIANT*>(array.pvData);
}

// Three rules, the middle one with another value at a place.
UniqueSafeArray RulesWith(std::size_t element, Value value)
{
    List rule = SampleRule(L"middle");
    rule[element] = std::move(value);
    return MakeArray({SampleRule(L"first"), rule, SampleRule(L"last")});
}

UniqueSafeArray RulesWith(Value record)
{
    return MakeArray({SampleRule(L"first"), std::move(record), SampleRule(L"last")});
}

// An array whose last rule has an element that was changed where it lies.
template <class Change>
UniqueSafeArray RulesChanged(std::size_t element, Change change)
{
    UniqueSafeArray rules = MakeArray({SampleRule(L"first"), SampleRule(L"last")});
    change(ElementsOf(*ElementsOf(*rules)[1].parray)[element]);
    return rules;
}

Value Shorter(std::size_t count)
{
    return SampleBytes(count - 1);
}

Value Longer(std::size_t count)
{
    return SampleBytes(count + 1);
}

List RuleOf(std::size_t count)
{
    List rule = SampleRule(L"middle");
    rule.resize(count, Value(std::uint32_t{0}));
    return rule;
}

Value BytesWithOneOfAnotherType()
{
    List bytes = SampleBytes(16);
    bytes.back() = std::uint16_t{1};
    return bytes;
}

struct Form
{
    const char* name;
    UniqueSafeArray (*make)();
};

constexpr Form OtherForms[] = {
    {"no array", [] { return UniqueSafeArray(); }},
    {"an array of numbers", [] { return UniqueSafeArray(SafeArrayCreateVector(VT_UI4, 0, 3)); }},
    {"an array of bytes", [] { return UniqueSafeArray(SafeArrayCreateVector(VT_UI1, 0, 23)); }},
    {"a list from 1 on", [] { return UniqueSafeArray(SafeArrayCreateVector(VT_VARIANT, 1, 0)); }},
    {"two dimensions",
     []
     {
         SAFEARRAYBOUND bounds[] = {{2, 0}, {2, 0}};
         return UniqueSafeArray(SafeArrayCreate(VT_VARIANT, 2, bounds));
     }},
    {"elements that are empty", [] { return UniqueSafeArray(SafeArrayCreateVector(VT_VARIANT, 0, 2)); }},
    {"a number in the place of a rule", [] { return RulesWith(std::uint32_t{1}); }},
    {"a text in the place of a rule", [] { return RulesWith(std::wstring(L"rule")); }},
    {"one rule in the place of the list", [] { return MakeArray(SampleRule(L"a")); }},
    {"a list in the place of a rule", [] { return RulesWith(List{SampleRule(L"a")}); }},
    {"a rule without elements", [] { return RulesWith(List()); }},
    {"a rule of 22 elements", [] { return RulesWith(RuleOf(22)); }},
    {"a rule of 24 elements", [] { return RulesWith(RuleOf(24)); }},
    {"a flag that is a number", [] { return RulesWith(0, std::uint16_t{1}); }},
    {"a number of 16 bits that has 32", [] { return RulesWith(5, std::uint32_t{2}); }},
    {"a number of 16 bits that has 8", [] { return RulesWith(6, std::uint8_t{1}); }},
    {"a number of 32 bits that has 16", [] { return RulesWith(16, std::uint16_t{6}); }},
    {"a name that is a number", [] { return RulesWith(2, std::uint32_t{6}); }},
    {"a path with a terminator inside", [] { return RulesWith(4, std::wstring(L"C:\\a\0.exe", 9)); }},
    {"a block of 15 bytes", [] { return RulesWith(14, Shorter(16)); }},
    {"a block of 17 bytes", [] { return RulesWith(15, Longer(16)); }},
    {"a block of 19 bytes", [] { return RulesWith(20, Shorter(20)); }},
    {"a block of 21 bytes", [] { return RulesWith(20, Longer(20)); }},
    {"a block of 20 bytes where 16 belong", [] { return RulesWith(21, SampleBytes(20)); }},
    {"a block without bytes", [] { return RulesWith(22, List()); }},
    {"a block that is a text", [] { return RulesWith(22, std::wstring(L"0123456789abcdef")); }},
    {"a block with a number among its bytes", [] { return RulesWith(14, BytesWithOneOfAnotherType()); }},
    {"a flag that is neither true nor false", [] { return RulesChanged(19, [](VARIANT& flag) { flag.boolVal = 1; }); }},
    {"a number with a sign", [] { return RulesChanged(12, [](VARIANT& number) { number.vt = VT_I4; }); }},
    {"an element that is null", [] { return RulesChanged(1, [](VARIANT& number) { number.vt = VT_NULL; }); }},
    {"a text of half a character",
     []
     {
         return RulesChanged(9,
                             [](VARIANT& text)
                             {
                                 SysFreeString(text.bstrVal);
                                 text.bstrVal = SysAllocStringByteLen("abc", 3);
                             });
     }},
    {"a block that is an array of bytes",
     []
     {
         return RulesChanged(14,
                             [](VARIANT& block)
                             {
                                 VariantClear(&block);
                                 block.vt = VT_ARRAY | VT_UI1;
                                 block.parray = SafeArrayCreateVector(VT_UI1, 0, 16);
                             });
     }},
    {"a block without its array",
     []
     {
         return RulesChanged(15,
                             [](VARIANT& block)
                             {
                                 SafeArrayDestroy(block.parray);
                                 block.parray = nullptr;
                             });
     }},
};

class RuleFormsTest : public ServiceFixture
{
protected:
    RuleFormsTest()
    {
        EXPECT_EQ(MakeController()->GetActiveProfile(m_profile.Put()), Success);
        EXPECT_EQ(Set(MakeArray(m_stored)), Success);
    }

    HRESULT Set(const UniqueSafeArray& array) const
    {
        ULONG word = 0;
        ULONG result = 0;
        return m_profile->SetValue(48, 5, 0, 0, &word, &result, array.get());
    }

    const List m_stored{SampleRule(L"stored"), SampleRule(L"")};
    Suite::ComPtr<IVdFrwkProfile> m_profile;
};

} // namespace

TEST_F(RuleFormsTest, EveryOtherFormIsRefusedAndTracedAndTheStoredRulesStay)
{
    const std::string file = ReadBytes(m_folder.File(ValueStore::FileName));
    for (const Form& form : OtherForms)
    {
        const DebuggerOutput output;
        EXPECT_EQ(Set(form.make()), E_INVALIDARG) << form.name;
        EXPECT_EQ(output.Texts().empty() ? "" : output.Texts().back(),
                  "VdFrwkSvc: The value 48, 5 that a client sets is refused; what is stored stays.\n")
            << form.name;
        EXPECT_EQ(m_store.Get(FirewallRules), m_stored) << form.name;
        EXPECT_EQ(ReadBytes(m_folder.File(ValueStore::FileName)), file) << form.name;
    }
}

TEST_F(RuleFormsTest, TheTraceTellsWhichRuleIsNone)
{
    const DebuggerOutput output;
    EXPECT_EQ(Set(RulesWith(RuleOf(22))), E_INVALIDARG);
    ASSERT_EQ(output.Texts().size(), 2u);
    EXPECT_EQ(output.Texts().front(), "VdFrwkSvc: Number 2 of 3 firewall rules has another form than a rule.\n");
}

TEST_F(RuleFormsTest, RulesAndNoRulesAreTakenWithoutATrace)
{
    const DebuggerOutput output;
    EXPECT_EQ(Set(RulesWith(SampleRule(L"middle"))), Success);
    EXPECT_EQ(Set(MakeArray({})), Success);
    EXPECT_EQ(m_store.Get(FirewallRules), List());
    EXPECT_TRUE(output.Texts().empty());
}
