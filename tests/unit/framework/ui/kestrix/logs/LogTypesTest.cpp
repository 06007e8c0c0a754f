#include "framework/ui/kestrix/logs/LogTypes.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>

namespace
{

struct Row
{
    std::uint32_t type;
    std::wstring_view extension;
    std::uint32_t querySubType;
    UINT exportTitle;
};

constexpr Row Table[] = {
    {0, L"VLG", 2, 143},   {1, L"UPG", 11, 158}, {2, L"UFG", 5, 161},   {3, L"PFG", 6, 159}, {5, L"PTG", 7, 162},
    {6, L"PPG", 9, 163},   {7, L"HLG", 4, 160},  {8, L"VAG", 8, 168},   {9, L"SPG", 3, 177}, {11, L"SCG", 10, 65},
    {12, L"STC", 13, 215}, {13, L"SCI", 12, 90}, {14, L"SKP", 14, 230},
};

} // namespace

TEST(LogTypesTest, EveryTypeHasItsExtensionQuerySubTypeAndExportTitle)
{
    for (const Row& row : Table)
    {
        const LogTypeInfo* const info = FindLogType(row.type);
        ASSERT_NE(info, nullptr) << row.type;
        EXPECT_EQ(info->extension, row.extension) << row.type;
        EXPECT_EQ(info->querySubType, row.querySubType) << row.type;
        EXPECT_EQ(ExportTitle(row.type), row.exportTitle) << row.type;
    }
    EXPECT_EQ(LogTypes().size(), std::size(Table));
}

TEST(LogTypesTest, ExtensionsAreLookedUpInTheirFixedOrder)
{
    std::wstring order;
    for (const LogTypeInfo& info : LogTypes())
    {
        order += std::wstring(info.extension) + L" ";
    }
    EXPECT_EQ(order, L"VLG UPG PFG UFG PPG PTG VAG SPG HLG SCG STC SCI SKP ");
}

TEST(LogTypesTest, LogType4Or10HasNoEntry)
{
    for (const std::uint32_t type : {4u, 10u, 15u, 16u, 0xFFFFFFFFu})
    {
        EXPECT_EQ(FindLogType(type), nullptr) << type;
    }
}

TEST(LogTypesTest, ATypeWithoutATitleOfItsOwnExportsUnderTheGeneralOne)
{
    for (const std::uint32_t type : {4u, 10u, 11u, 15u, 1000u})
    {
        EXPECT_EQ(ExportTitle(type), 65u) << type;
    }
}
