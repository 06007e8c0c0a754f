#include "suite/framework/PropertyValues.h"

#include "suite/samples/UrlCategories.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace Framework;

namespace
{

constexpr ValueKey Categories{3, 2};
constexpr ValueKey Connection{39, 4};

List Get(const PropertyValues& values, const ValueKey& key)
{
    List list{1u, 2u};
    EXPECT_EQ(values.Query(key, list), Success);
    return list;
}

} // namespace

TEST(PropertyValuesTest, TheConnectionIsWhatTheSystemSays)
{
    EXPECT_EQ(Get(PropertyValues({}, [] { return true; }), Connection), (List{true}));
    EXPECT_EQ(Get(PropertyValues({}, [] { return false; }), Connection), (List{false}));
}

TEST(PropertyValuesTest, TheCategoryGroupsAreThoseOfTheSampleLogs)
{
    const TemporaryFolder folder;
    const List list = Get(PropertyValues(folder.Path()), Categories);
    ASSERT_EQ(list.size(), 1u);
    const List& groups = std::get<List>(list[0]);
    ASSERT_EQ(groups.size(), std::size(Samples::UrlCategories));
    for (std::size_t i = 0; i < groups.size(); ++i)
    {
        const Samples::UrlCategory& category = Samples::UrlCategories[i];
        EXPECT_EQ(groups[i], Value(List{std::wstring(category.key), std::wstring(category.name)}));
    }
}

TEST(PropertyValuesTest, NothingCanBeSetAndOtherTypesAreUnknown)
{
    PropertyValues values({});
    EXPECT_EQ(values.Set(Connection, {true}), E_ACCESSDENIED);
    EXPECT_EQ(values.Set(Categories, {List()}), E_ACCESSDENIED);
    EXPECT_EQ(values.Set({39, 3}, {true}), Unknown);
    List list;
    EXPECT_EQ(values.Query({3, 1}, list), Unknown);
}
