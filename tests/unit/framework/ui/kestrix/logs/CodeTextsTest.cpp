#include "framework/ui/kestrix/logs/CodeTexts.h"
#include "tests/support/LanguageFile.h"

#include <gtest/gtest.h>

namespace
{

constexpr CodeText Table[] = {{1, 39}, {5, 38}, {0x80000000, 81}};
static_assert(IsSorted(Table));

constexpr CodeText FromZero[] = {{0, 39}, {1, 38}, {3, 81}};
static_assert(IsSorted(FromZero));

constexpr CodeText Twice[] = {{1, 39}, {1, 38}};
static_assert(!IsSorted(Twice));
constexpr CodeText Falling[] = {{2, 39}, {1, 38}};
static_assert(!IsSorted(Falling));

} // namespace

TEST(CodeTextsTest, ACodeGivesItsTextAndAnyOtherTheTextForOthers)
{
    const LanguageFile language;
    EXPECT_EQ(TextOfCode(Table, 1), Text(39));
    EXPECT_EQ(TextOfCode(Table, 5, 52), Text(38));
    EXPECT_EQ(TextOfCode(Table, 0x80000000), Text(81));
    for (const std::uint32_t other : {0u, 2u, 6u, 0xFFFFFFFFu})
    {
        EXPECT_EQ(TextOfCode(Table, other), L"") << other;
        EXPECT_EQ(TextOfCode(Table, other, 52), Text(52)) << other;
    }
}

TEST(CodeTextsTest, TheSameInATableWhoseFirstCodesAreTheirPlaces)
{
    const LanguageFile language;
    EXPECT_EQ(TextOfCode(FromZero, 0), Text(39));
    EXPECT_EQ(TextOfCode(FromZero, 1), Text(38));
    EXPECT_EQ(TextOfCode(FromZero, 2), L"");
    EXPECT_EQ(TextOfCode(FromZero, 3), Text(81));
    EXPECT_EQ(TextOfCode(FromZero, 4), L"");
}
