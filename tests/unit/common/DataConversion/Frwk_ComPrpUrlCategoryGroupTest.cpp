#include "common/DataConversion/Frwk_ComPrpUrlCategoryGroup.h"

#include "tests/unit/common/FrameworkValues.h"
#include "tests/unit/common/WireArray.h"

namespace
{

using namespace Frwk::DataTypes;

using CategoryGroup = FrameworkValues;

TEST_F(CategoryGroup, IsItsTwoTextsInOrder)
{
    const OwnedArray wire{Wire::Text(L"12"), Wire::Text(L"Web \x0416")};
    ComPrpUrlCategoryGroup array;
    ASSERT_TRUE(array.Attach(wire.Get()));
    UrlCategoryGroup group;
    EXPECT_TRUE(array.GetPrpCategoryGroup(group));
    EXPECT_EQ(group.first, L"12");
    EXPECT_EQ(group.second, L"Web \x0416");
    EXPECT_EQ(Errors(), Traces());
}

TEST_F(CategoryGroup, SecondTextThatIsMissingOrNoTextFails)
{
    ComPrpUrlCategoryGroup shorter;
    ComPrpUrlCategoryGroup wrong;
    const OwnedArray shorterWire{Wire::Text(L"12")};
    const OwnedArray wrongWire{Wire::Text(L"13"), Wire::Number(1)};
    ASSERT_TRUE(shorter.Attach(shorterWire.Get()));
    ASSERT_TRUE(wrong.Attach(wrongWire.Get()));
    UrlCategoryGroup group{L"", L"before"};
    EXPECT_FALSE(shorter.GetPrpCategoryGroup(group));
    EXPECT_EQ(group.first, L"12");
    EXPECT_FALSE(wrong.GetPrpCategoryGroup(group));
    EXPECT_EQ(group.first, L"13");
    EXPECT_EQ(group.second, L"before");
    EXPECT_EQ(Errors(), (Traces{L"*** VariantArray::GetElement() - ::SafeArrayGetElement() failed. [8002000b]",
                                L"*** VariantArray::GetValue() - Specified element was not VT_BSTR."}));
}

} // namespace
