#include "suite/framework/ValueFile.h"

#include "tests/unit/suite/framework/SampleRule.h"

#include <gtest/gtest.h>

using namespace Framework;

namespace
{

Values Sample()
{
    return {{{48, 5}, {SampleRule(L"one"), SampleRule(L"\x00E4\x65E5")}}, {{112, 1}, {7u, 0u, 0u}}, {{1, 1}, {}}};
}

} // namespace

TEST(ValueFileTest, ValuesOfAllTypesComeBack)
{
    const std::optional<Values> read = ParseFile(FileBytes(Sample()));
    ASSERT_TRUE(read);
    EXPECT_EQ(*read, Sample());
}

TEST(ValueFileTest, NoValuesComeBackAsNone)
{
    EXPECT_EQ(ParseFile(FileBytes({})), std::optional(Values()));
}

TEST(ValueFileTest, AFileThatEndsAnywhereIsDamaged)
{
    const std::string bytes = FileBytes(Sample());
    for (std::size_t length = 0; length < bytes.size(); ++length)
    {
        EXPECT_FALSE(ParseFile(std::string_view(bytes).substr(0, length))) << length;
    }
    EXPECT_FALSE(ParseFile(bytes + '\0'));
}

TEST(ValueFileTest, AChangeOfAnyByteIsFound)
{
    std::string bytes = FileBytes(Sample());
    for (char& byte : bytes)
    {
        byte = static_cast<char>(byte ^ 0x40);
        EXPECT_FALSE(ParseFile(bytes));
        byte = static_cast<char>(byte ^ 0x40);
    }
}

TEST(ValueFileTest, ListsThatLieDeeperInOneAnotherThanAnyValueAreDamage)
{
    const auto nested = [](int depth)
    {
        List list;
        for (int i = 1; i < depth; ++i)
        {
            list = List{Value(list)};
        }
        return list;
    };
    EXPECT_TRUE(ParseFile(FileBytes({{{1, 1}, nested(DeepestList)}})));
    EXPECT_FALSE(ParseFile(FileBytes({{{1, 1}, nested(DeepestList + 1)}})));
}
