#include "common/DataConversion/Frwk_ComPrpUrlFilterCategoryCroupList.h"

#include "tests/unit/common/FrameworkValues.h"
#include "tests/unit/common/WireArray.h"

namespace
{

using namespace Frwk::DataTypes;

using CategoryGroupList = FrameworkValues;
using Groups = std::vector<UrlCategoryGroup>;

constexpr wchar_t ConversionFailed[] = L"*** ComPrpUrlFilterCategoryCroupList::GetPrpUrlFilterCategoryCroupList() - "
                                       L"cComPrpUrlCategoryGroups.GetPrpUrlCategoryGroups() failed.";
constexpr wchar_t ReadFailed[] =
    L"*** ComPrpUrlFilterCategoryCroupList::GetPrpUrlFilterCategoryCroupList() - this->GetValueArray() failed.";

VARIANT TwoGroups()
{
    return Wire::Array(OwnedArray{Wire::Array(OwnedArray{Wire::Text(L"1"), Wire::Text(L"one")}),
                                  Wire::Array(OwnedArray{Wire::Text(L"2"), Wire::Text(L"two")})});
}

bool ReadFilterGroups(const OwnedArray& wire, Groups* list)
{
    ComPrpUrlFilterCategoryGroupList array;
    EXPECT_TRUE(array.Attach(wire.Get()));
    return array.GetPrpUrlFilterCategoryCroupList(list);
}

TEST_F(CategoryGroupList, GivesTheGroupsOfItsElementAndDestroysItsCopy)
{
    const OwnedArray wire{TwoGroups()};
    const long before = m_memory.BlocksOut();
    Groups list{{L"old", L"old"}};
    EXPECT_TRUE(ReadFilterGroups(wire, &list));
    EXPECT_EQ(m_memory.BlocksOut(), before);
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0].first, L"1");
    EXPECT_EQ(list[0].second, L"one");
    EXPECT_EQ(list[1].first, L"2");
    EXPECT_EQ(list[1].second, L"two");
    EXPECT_EQ(Errors(), Traces());
}

TEST_F(CategoryGroupList, EmptyGroupListIsSuccessWithAnEmptyResult)
{
    Groups list{{L"old", L"old"}};
    EXPECT_TRUE(ReadFilterGroups(OwnedArray{Wire::Array(OwnedArray(VT_VARIANT, {{0, 0}}))}, &list));
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(Errors(), Traces());
}

TEST_F(CategoryGroupList, NullArrayIsAnEmptyListAndTraced)
{
    Groups list{{L"old", L"old"}};
    EXPECT_TRUE(ReadFilterGroups(OwnedArray{Wire::Value(VT_ARRAY | VT_VARIANT, 0)}, &list));
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::GetElementCount() - this->m_lpSafeArray was invalid."});
}

TEST_F(CategoryGroupList, ElementThatIsNoArrayFailsAndLeavesTheList)
{
    Groups list{{L"old", L"old"}};
    EXPECT_FALSE(ReadFilterGroups(OwnedArray{Wire::Text(L"text")}, &list));
    EXPECT_EQ(Errors(),
              (Traces{L"*** VariantArray::GetValueArray() - Specified element was not VT_ARRAY.", ReadFailed}));
    EXPECT_EQ(list.size(), 1u);
}

TEST_F(CategoryGroupList, WithoutAnArrayFails)
{
    const ComPrpUrlFilterCategoryGroupList array;
    Groups list;
    EXPECT_FALSE(array.GetPrpUrlFilterCategoryCroupList(&list));
    EXPECT_EQ(Errors(), (Traces{L"*** VariantArray::GetElement() - this->m_lpSafeArray was invalid.", ReadFailed}));
}

TEST_F(CategoryGroupList, GroupThatFailsIsTracedByAllAndDestroysTheCopy)
{
    const OwnedArray wire{Wire::Array(OwnedArray{Wire::Number(1)})};
    const long before = m_memory.BlocksOut();
    Groups list;
    EXPECT_FALSE(ReadFilterGroups(wire, &list));
    EXPECT_EQ(m_memory.BlocksOut(), before);
    const Traces errors = Errors();
    ASSERT_EQ(errors.size(), 4u);
    EXPECT_EQ(errors.back(), ConversionFailed);
}

TEST_F(CategoryGroupList, NullListFailsAndDestroysTheCopy)
{
    const OwnedArray wire{TwoGroups()};
    const long before = m_memory.BlocksOut();
    EXPECT_FALSE(ReadFilterGroups(wire, nullptr));
    EXPECT_EQ(m_memory.BlocksOut(), before);
    EXPECT_EQ(Errors(), Traces{ConversionFailed});
}

} // namespace
