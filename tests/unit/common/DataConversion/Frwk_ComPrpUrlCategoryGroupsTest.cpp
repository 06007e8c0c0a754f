#include "common/DataConversion/Frwk_ComPrpUrlCategoryGroups.h"

#include "tests/support/AllocationWatch.h"
#include "tests/unit/common/FrameworkValues.h"
#include "tests/unit/common/WireArray.h"

namespace
{

using namespace Frwk::DataTypes;

using CategoryGroups = FrameworkValues;
using Groups = std::vector<UrlCategoryGroup>;

constexpr wchar_t GroupsFailed[] =
    L"*** ComPrpUrlCategoryGroups::GetPrpUrlCategoryGroups() - this->GetAtPrpUrlCategoryGroup() failed.";

VARIANT Group(const wchar_t* first, const wchar_t* second)
{
    return Wire::Array(OwnedArray{Wire::Text(first), Wire::Text(second)});
}

bool ReadGroups(const OwnedArray& wire, Groups* list)
{
    ComPrpUrlCategoryGroups array;
    EXPECT_TRUE(array.Attach(wire.Get()));
    return array.GetPrpUrlCategoryGroups(list);
}

// The keys of the groups, which tell them apart.
std::wstring Keys(const Groups& list)
{
    std::wstring keys;
    for (const UrlCategoryGroup& group : list)
    {
        keys += group.first + L';';
    }
    return keys;
}

TEST_F(CategoryGroups, ReplaceTheListInTheOrderOfTheArray)
{
    Groups list{{L"old", L"old"}};
    EXPECT_TRUE(ReadGroups(OwnedArray{Group(L"3", L"three"), Group(L"1", L""), Group(L"2", L"two")}, &list));
    ASSERT_EQ(Keys(list), L"3;1;2;");
    EXPECT_EQ(list[0].second, L"three");
    EXPECT_EQ(list[1].second, L"");
    EXPECT_EQ(list[2].second, L"two");
    EXPECT_EQ(Errors(), Traces());
}

TEST_F(CategoryGroups, EmptyListIsSuccessWithAnEmptyResult)
{
    Groups list{{L"old", L"old"}};
    EXPECT_TRUE(ReadGroups(OwnedArray(VT_VARIANT, {{0, 0}}), &list));
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(Errors(), Traces());
}

TEST_F(CategoryGroups, WithoutAnArrayAreAnEmptyListAndTraced)
{
    const ComPrpUrlCategoryGroups array;
    Groups list{{L"old", L"old"}};
    EXPECT_TRUE(array.GetPrpUrlCategoryGroups(&list));
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::GetElementCount() - this->m_lpSafeArray was invalid."});
}

TEST_F(CategoryGroups, NullListFails)
{
    EXPECT_FALSE(ReadGroups(OwnedArray{Group(L"1", L"one")}, nullptr));
    EXPECT_EQ(Errors(), Traces());
}

TEST_F(CategoryGroups, FirstFailureEndsItAndWhatWasAppendedStays)
{
    Groups list{{L"old", L"old"}};
    EXPECT_FALSE(ReadGroups(
        OwnedArray{Group(L"1", L"one"), Wire::Array(OwnedArray{Wire::Text(L"2")}), Group(L"3", L"three")}, &list));
    EXPECT_EQ(Keys(list), L"1;");
    EXPECT_EQ(Errors(), (Traces{L"*** VariantArray::GetElement() - ::SafeArrayGetElement() failed. [8002000b]",
                                L"*** ComPrpUrlCategoryGroups::GetAtPrpUrlCategoryGroup() - "
                                L"cComPrpGuid.GetPrpCategoryGroup() failed.",
                                GroupsFailed}));
}

TEST_F(CategoryGroups, ElementWithoutAnArrayFails)
{
    const Traces expected{
        L"*** VariantArray::Attach() - _lpSafeArray was invalid.",
        L"*** ComPrpUrlCategoryGroups::GetAtPrpUrlCategoryGroup() - cComPrpUrlCategoryGroup.Attach() failed.",
        GroupsFailed,
    };
    for (const VARIANT& element :
         {Wire::Number(0x10000), Wire::Text(L"text"), Wire::Value(VT_EMPTY, 0), Wire::Value(VT_ARRAY | VT_VARIANT, 0),
          Wire::Value(VT_ARRAY | VT_BYREF | VT_VARIANT, 0)})
    {
        Groups list;
        EXPECT_FALSE(ReadGroups(OwnedArray{element}, &list));
        EXPECT_EQ(Errors(), expected) << element.vt;
    }
}

TEST_F(CategoryGroups, ElementThatCannotBeReadFails)
{
    const Traces expected{
        L"*** VariantArray::GetElement() - ::SafeArrayGetElement() failed. [80020005]",
        L"*** ComPrpUrlCategoryGroups::GetAtPrpUrlCategoryGroup() - this->GetElement() failed.",
        GroupsFailed,
    };
    Groups list;
    EXPECT_FALSE(ReadGroups(OwnedArray(VT_BSTR, {{2, 0}}), &list));
    EXPECT_EQ(Errors(), expected);
    EXPECT_FALSE(ReadGroups(OwnedArray(VT_VARIANT, {{2, 0}, {2, 0}}), &list));
    EXPECT_EQ(Errors(), expected);
}

TEST_F(CategoryGroups, GroupOfAnotherFormFails)
{
    Groups list;
    EXPECT_FALSE(ReadGroups(OwnedArray{Wire::Array(OwnedArray(VT_BSTR, {{2, 0}}), VT_ARRAY | VT_BSTR)}, &list));
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(Errors().size(), 3u);
    EXPECT_FALSE(ReadGroups(OwnedArray{Wire::Array(OwnedArray(VT_VARIANT, {{2, 1}}))}, &list));
    EXPECT_EQ(Errors().size(), 3u);
}

TEST_F(CategoryGroups, OneAloneIsReadByItsIndexAndLeavesNothingBehind)
{
    const OwnedArray wire{Group(L"1", L"one"), Group(L"2", L"two")};
    const long before = m_memory.BlocksOut();
    ComPrpUrlCategoryGroups array;
    ASSERT_TRUE(array.Attach(wire.Get()));
    UrlCategoryGroup group;
    EXPECT_TRUE(array.GetAtPrpUrlCategoryGroup(group, 1));
    EXPECT_EQ(group.first, L"2");
    EXPECT_EQ(group.second, L"two");
    EXPECT_FALSE(array.GetAtPrpUrlCategoryGroup(group, 2));
    EXPECT_EQ(m_memory.BlocksOut(), before);
}

TEST_F(CategoryGroups, ListThatThereIsNoMemoryForFailsWithoutAnException)
{
    const OwnedArray wire{Group(L"1", L"one")};
    ComPrpUrlCategoryGroups array;
    ASSERT_TRUE(array.Attach(wire.Get()));
    Groups list;
    {
        AllocationWatch heap;
        heap.FailAbove(sizeof(UrlCategoryGroup) - 1);
        EXPECT_FALSE(array.GetPrpUrlCategoryGroups(&list));
    }
    EXPECT_TRUE(list.empty());
}

} // namespace
