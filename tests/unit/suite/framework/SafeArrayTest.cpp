#include "suite/framework/SafeArray.h"

#include "tests/unit/suite/framework/SampleRule.h"

#include <gtest/gtest.h>

#include <oleauto.h>

#include <utility>

using namespace Framework;

namespace
{

// An array of one element, which it takes over.
UniqueSafeArray ArrayOf(VARIANT element)
{
    UniqueSafeArray array(SafeArrayCreateVector(VT_VARIANT, 0, 1));
    void* data = nullptr;
    SafeArrayAccessData(array.get(), &data);
    *static_cast<VARIANT*>(data) = element;
    SafeArrayUnaccessData(array.get());
    return array;
}

VARIANT EmptyElement(VARTYPE type)
{
    VARIANT element{};
    element.vt = type;
    return element;
}

} // namespace

TEST(SafeArrayTest, ElementsOfAllTypesComeBack)
{
    const List list{SampleRule(L"name"), std::uint8_t{255}, false, List()};
    EXPECT_EQ(ReadArray(MakeArray(list).get()), list);
}

TEST(SafeArrayTest, AnEmptyTextIsAnAllocatedOneAndANullTextReadsAsEmpty)
{
    const UniqueSafeArray array = MakeArray({std::wstring()});
    EXPECT_NE(static_cast<VARIANT*>(array->pvData)->bstrVal, nullptr);
    EXPECT_EQ(ReadArray(ArrayOf(EmptyElement(VT_BSTR)).get()), (List{std::wstring()}));
}

TEST(SafeArrayTest, NullOtherElementsDimensionsAndBoundsAreNoList)
{
    EXPECT_EQ(ReadArray(nullptr), std::nullopt);
    EXPECT_EQ(ReadArray(UniqueSafeArray(SafeArrayCreateVector(VT_UI1, 0, 3)).get()), std::nullopt);
    EXPECT_EQ(ReadArray(UniqueSafeArray(SafeArrayCreateVector(VT_VARIANT, 1, 3)).get()), std::nullopt);
    SAFEARRAYBOUND bounds[] = {{1, 0}, {1, 0}};
    EXPECT_EQ(ReadArray(UniqueSafeArray(SafeArrayCreate(VT_VARIANT, 2, bounds)).get()), std::nullopt);
}

TEST(SafeArrayTest, AnElementOfAnotherTypeIsNoValue)
{
    for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_I4, VT_UI8, VT_R8, VT_DATE})
    {
        EXPECT_EQ(ReadArray(ArrayOf(EmptyElement(type)).get()), std::nullopt) << type;
    }
}

TEST(SafeArrayTest, ANestedArrayOfBytesOrWithoutAnArrayIsNoList)
{
    VARIANT bytes = EmptyElement(VT_ARRAY | VT_UI1);
    bytes.parray = SafeArrayCreateVector(VT_UI1, 0, 16);
    EXPECT_EQ(ReadArray(ArrayOf(bytes).get()), std::nullopt);
    EXPECT_EQ(ReadArray(ArrayOf(EmptyElement(VT_ARRAY | VT_VARIANT)).get()), std::nullopt);
}

TEST(SafeArrayTest, ATextWithATerminatorInsideOrHalfACharacterIsRefused)
{
    VARIANT text = EmptyElement(VT_BSTR);
    text.bstrVal = SysAllocStringLen(L"a\0b", 3);
    EXPECT_EQ(ReadArray(ArrayOf(text).get()), std::nullopt);
    text.bstrVal = SysAllocStringByteLen("abc", 3);
    EXPECT_EQ(ReadArray(ArrayOf(text).get()), std::nullopt);
}

TEST(SafeArrayTest, ABoolIsTrueOrFalseAndNoOtherNumber)
{
    VARIANT flag = EmptyElement(VT_BOOL);
    for (const auto& [number, read] : {std::pair{VARIANT_TRUE, true}, std::pair{VARIANT_FALSE, false}})
    {
        flag.boolVal = number;
        EXPECT_EQ(ReadArray(ArrayOf(flag).get()), (List{read}));
    }
    for (const VARIANT_BOOL number : {1, 2, -2, 0x100})
    {
        flag.boolVal = number;
        EXPECT_EQ(ReadArray(ArrayOf(flag).get()), std::nullopt) << number;
    }
}

TEST(SafeArrayTest, ListsThatLieTooDeepInOneAnotherAreRefused)
{
    List list;
    for (int i = 1; i < DeepestList; ++i)
    {
        list = List{Value(list)};
    }
    EXPECT_EQ(ReadArray(MakeArray(list).get()), list);
    EXPECT_EQ(ReadArray(MakeArray({Value(list)}).get()), std::nullopt);
}
