// One rule of the firewall and its array.

#include "common/DataConversion/Frwk_ComPrfFwRule.h"

#include "tests/unit/common/DataConversion/FwRuleSample.h"
#include "tests/unit/common/FrameworkValues.h"
#include "tests/unit/common/WireText.h"

namespace
{

using namespace Frwk::DataTypes;

using FirewallRule = FrameworkValues;

// What a write makes of the rule, told from the bytes of the array.
std::wstring Written(const FwRule& rule)
{
    ComPrfFwRule array;
    EXPECT_TRUE(array.CreateArray(ComPrfFwRule::ElementCount));
    EXPECT_TRUE(array.SetPrfFwRule(rule));
    const OwnedArray owner(array.GetSafeArray());
    return Wire::TextOf(owner.Get());
}

bool ReadRule(const OwnedArray& wire, FwRule& rule)
{
    ComPrfFwRule array;
    EXPECT_TRUE(array.Attach(wire.Get()));
    return array.GetPrfFwRule(rule);
}

// The rule's array with another element in one place.
OwnedArray SampleWith(std::size_t place, const VARIANT& element)
{
    std::vector<VARIANT> elements = SampleElements();
    ::VariantClear(&elements[place]);
    elements[place] = element;
    return OwnedArray(std::span<const VARIANT>(elements));
}

TEST_F(FirewallRule, IsWrittenAs23ElementsOfTheirTypesInTheirPlaces)
{
    EXPECT_EQ(Written(SampleRule()),
              L"[11:ffff 18:ff01 8:'name' 18:0003 8:'C:\\\x0416.exe' 18:0005 18:0006 18:0007 18:8008 8:'source' "
              L"8:'destination' 18:0011 19:ffff0012 19:00000013 "
              L"8204:[17:40 17:41 17:42 17:43 17:44 17:45 17:46 17:47 17:48 17:49 17:4a 17:4b 17:4c 17:4d 17:4e 17:4f] "
              L"8204:[17:50 17:51 17:52 17:53 17:54 17:55 17:56 17:57 17:58 17:59 17:5a 17:5b 17:5c 17:5d 17:5e 17:5f] "
              L"19:00010000 18:0017 8:'80,443' 11:ffff "
              L"8204:[17:c0 17:c1 17:c2 17:c3 17:c4 17:c5 17:c6 17:c7 17:c8 17:c9 17:ca 17:cb 17:cc 17:cd 17:ce 17:cf "
              L"17:d0 17:d1 17:d2 17:d3] "
              L"8204:[17:a0 17:a1 17:a2 17:a3 17:a4 17:a5 17:a6 17:a7 17:a8 17:a9 17:aa 17:ab 17:ac 17:ad 17:ae 17:af] "
              L"8204:[17:b0 17:b1 17:b2 17:b3 17:b4 17:b5 17:b6 17:b7 17:b8 17:b9 17:ba 17:bb 17:bc 17:bd 17:be "
              L"17:bf]]");
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(FirewallRule, IsReadFromElementsThatWereWrittenByHand)
{
    FwRule rule;
    EXPECT_TRUE(ReadRule(SampleArray(), rule));
    EXPECT_EQ(rule, SampleRule());
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(FirewallRule, ReadFromTheWireAndWrittenBackWithoutChangeHasTheSameElements)
{
    const OwnedArray wire = SampleArray();
    FwRule rule;
    ASSERT_TRUE(ReadRule(wire, rule));
    EXPECT_EQ(Written(rule), Wire::TextOf(wire.Get()));
}

TEST_F(FirewallRule, EmptyPathIsWrittenAsAnEmptyTextAndNotAsAMissingElement)
{
    ComPrfFwRule array;
    ASSERT_TRUE(array.CreateArray(ComPrfFwRule::ElementCount));
    EXPECT_TRUE(array.SetPrfFwRule(FwRule()));
    const OwnedArray owner(array.GetSafeArray());
    EXPECT_EQ(Wire::Bytes(owner.Get(), 4, 0), (std::vector<BYTE>{8, 0}));
    EXPECT_NE(Wire::Pointer<wchar_t>(owner.Get(), 4), nullptr);
    EXPECT_EQ(Wire::TextAt(owner.Get(), 4), L"");
}

TEST_F(FirewallRule, ElementOfTheWrongTypeFailsTheReadAtThatElement)
{
    const std::vector<VARIANT> elements = SampleElements();
    for (std::size_t place = 0; place < elements.size(); ++place)
    {
        FwRule rule;
        EXPECT_FALSE(ReadRule(SampleWith(place, Wire::Value(VT_I4, 1)), rule)) << place;
        const VARTYPE type = elements[place].vt;
        const std::wstring name = type == VT_BOOL   ? L"VT_BOOL"
                                  : type == VT_UI2  ? L"VT_UI2"
                                  : type == VT_UI4  ? L"VT_UI4"
                                  : type == VT_BSTR ? L"VT_BSTR"
                                                    : L"VT_ARRAY";
        const std::wstring reader = name == L"VT_ARRAY" ? L"GetValueArray" : L"GetValue";
        EXPECT_EQ(Errors(), Traces{L"*** VariantArray::" + reader + L"() - Specified element was not " + name + L"."})
            << place;
    }
    const OwnedArray owner{std::span<const VARIANT>(elements)};
}

// The last three of the order are 21, 22 and then 16 to 20.
TEST_F(FirewallRule, WhatWasReadBeforeTheFailureStaysInTheRuleAndTheRestIsNotRead)
{
    FwRule rule;
    EXPECT_FALSE(ReadRule(SampleWith(16, Wire::Value(VT_I4, 1)), rule));
    FwRule expected = SampleRule();
    expected.nProtocolType = 0;
    expected.nPortType = 0;
    expected.strPortList.clear();
    expected.bFlag19 = false;
    expected.abField20 = {};
    EXPECT_EQ(rule, expected);

    rule = {};
    EXPECT_FALSE(ReadRule(SampleWith(21, Wire::Value(VT_I4, 1)), rule));
    expected.abField21 = {};
    expected.abField22 = {};
    EXPECT_EQ(rule, expected);
    EXPECT_EQ(Errors().size(), 2u);
}

TEST_F(FirewallRule, WhatWasWrittenBeforeTheFailureStaysInTheArray)
{
    const OwnedArray shorter(VT_VARIANT, {{22, 0}});
    ComPrfFwRule array;
    ASSERT_TRUE(array.Attach(shorter.Get()));
    EXPECT_FALSE(array.SetPrfFwRule(SampleRule()));
    const std::wstring rest =
        L" 0: 0: 0: 0: 0: 8204:[17:a0 17:a1 17:a2 17:a3 17:a4 17:a5 17:a6 17:a7 17:a8 17:a9 17:aa "
        L"17:ab 17:ac 17:ad 17:ae 17:af]]";
    EXPECT_TRUE(Wire::TextOf(shorter.Get()).ends_with(L"17:5f]" + rest)) << "16 to 20 come after 22, which is missing";
    EXPECT_EQ(Errors().size(), 2u);
}

TEST_F(FirewallRule, ShorterArrayFailsTheRead)
{
    std::vector<VARIANT> elements = SampleElements();
    ::VariantClear(&elements.back());
    elements.pop_back();
    FwRule rule;
    EXPECT_FALSE(ReadRule(OwnedArray(std::span<const VARIANT>(elements)), rule));
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::GetElement() - ::SafeArrayGetElement() failed. [8002000b]"});
}

TEST_F(FirewallRule, FlagIsTrueForTheOneValueThatMeansIt)
{
    FwRule rule = SampleRule();
    EXPECT_TRUE(ReadRule(SampleWith(19, Wire::Value(VT_BOOL, 1)), rule));
    EXPECT_FALSE(rule.bFlag19);
}

TEST_F(FirewallRule, BlockOf15BytesAndLongBlockOf16HaveAnotherSizeThanIsRead)
{
    const struct
    {
        std::size_t place;
        std::size_t bytes;
        std::wstring trace;
    } cases[] = {
        {14, 15, L"GetValueArrayBytes() - Not support data size. [0x0000000f]"},
        {15, 17, L"GetValueArrayBytes() - Not support data size. [0x00000011]"},
        {21, 1, L"GetValueArrayBytes() - Not support data size. [0x00000001]"},
        {22, 20, L"GetValueArrayBytes() - Not support data size. [0x00000014]"},
        {20, 16, L"GetPrfFwRule() - Not support data size. [0x00000010]"},
        {20, 21, L"GetPrfFwRule() - Not support data size. [0x00000015]"},
    };

    for (const auto& [place, bytes, trace] : cases)
    {
        FwRule rule;
        EXPECT_FALSE(ReadRule(SampleWith(place, Wire::Block(bytes, 1)), rule));
        EXPECT_EQ(Errors(), Traces{L"*** ComPrfFwRule::" + trace});
    }
}

TEST_F(FirewallRule, BlockOfNoBytesIsNotRead)
{
    FwRule rule;
    EXPECT_FALSE(ReadRule(SampleWith(15, Wire::Block(0, 0)), rule));
    EXPECT_FALSE(ReadRule(SampleWith(20, Wire::Block(0, 0)), rule));
    EXPECT_EQ(Errors(), (Traces{L"*** ComPrfFwRule::GetValueArrayBytes() - cComByteArray.GetByteArray() failed.",
                                L"*** ComPrfFwRule::GetPrfFwRule() - cComByteArray.GetByteArray() failed."}));
}

TEST_F(FirewallRule, SizeThatTheCallersPassIsNotLookedAt)
{
    ComPrfFwRule array;
    ASSERT_TRUE(array.CreateArray(1));
    const FwRule::Block sent = SampleRule().abField14;
    FwRule::Block received{};
    EXPECT_TRUE(array.SetValueArrayBytes(sent.data(), 3, 0));
    EXPECT_TRUE(array.GetValueArrayBytes(received.data(), 20, 0));
    EXPECT_EQ(received, sent);
    array.DestroyArray();
    EXPECT_EQ(Errors(), NoTraces);
}

} // namespace
