#include "framework/ui/kestrix/logs/LogKinds.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace
{

struct KindRow
{
    std::uint32_t type;
    std::wstring_view extension;
    std::uint32_t querySubType;
    UINT exportTitle;
};

// The numbers that the suite knows these kinds by; they stay as they are. What other kinds have is theirs to say.
constexpr KindRow KindRows[] = {
    {0, L"VLG", 2, 143},   {1, L"UPG", 11, 158}, {2, L"UFG", 5, 161},   {3, L"PFG", 6, 159}, {5, L"PTG", 7, 162},
    {6, L"PPG", 9, 163},   {7, L"HLG", 4, 160},  {8, L"VAG", 8, 168},   {9, L"SPG", 3, 177}, {11, L"SCG", 10, 65},
    {12, L"STC", 13, 215}, {13, L"SCI", 12, 90}, {14, L"SKP", 14, 230},
};

} // namespace

TEST(LogKindsTest, EveryTypeHasItsExtensionQuerySubTypeAndExportTitle)
{
    for (const KindRow& row : KindRows)
    {
        const LogKind* const kind = FindLogKind(row.type);
        ASSERT_NE(kind, nullptr) << row.type;
        EXPECT_EQ(kind->extension, row.extension) << row.type;
        EXPECT_EQ(kind->querySubType, row.querySubType) << row.type;
        EXPECT_EQ(ExportTitle(row.type), row.exportTitle) << row.type;
    }
}

TEST(LogKindsTest, NoTwoKindsShareANumberOrAnExtension)
{
    std::set<std::uint32_t> types;
    std::set<std::uint32_t> subTypes;
    std::set<std::int32_t> codes;
    std::set<std::wstring_view> extensions;
    for (const LogKind& kind : LogKinds())
    {
        EXPECT_TRUE(types.insert(kind.type).second) << kind.type;
        EXPECT_TRUE(subTypes.insert(kind.querySubType).second) << kind.type;
        EXPECT_TRUE(codes.insert(kind.commandCode).second) << kind.type;
        EXPECT_TRUE(extensions.insert(kind.extension).second) << kind.type;
    }
}

TEST(LogKindsTest, LogType4Or10HasNoEntry)
{
    for (const std::uint32_t type : {4u, 10u, 15u, 1000u, 0xFFFFFFFFu})
    {
        EXPECT_EQ(FindLogKind(type), nullptr) << type;
    }
}

TEST(LogKindsTest, ATypeWithoutATitleOfItsOwnExportsUnderTheGeneralOne)
{
    for (const std::uint32_t type : {4u, 10u, 11u, 15u, 1000u})
    {
        EXPECT_EQ(ExportTitle(type), 65u) << type;
    }
}

TEST(LogKindsTest, TheFirstValueIsALinkForThreeLogsOnly)
{
    std::set<std::uint32_t> links;
    for (const LogKind& kind : LogKinds())
    {
        if (kind.firstInfo == FirstInfo::Link)
        {
            links.insert(kind.type);
        }
    }
    EXPECT_EQ(links, (std::set<std::uint32_t>{0, 5, 9}));
    EXPECT_EQ(FindLogKind(6)->firstInfo, FirstInfo::TextOnly);
    EXPECT_EQ(FindLogKind(7)->firstInfo, FirstInfo::TallText);
}

TEST(LogKindsTest, ThreeLogsHaveAWholeTextAndOneAnAllowRule)
{
    for (const LogKind& kind : LogKinds())
    {
        EXPECT_EQ(kind.hasWholeInfo, kind.type == 0 || kind.type == 9 || kind.type == 11) << kind.type;
        EXPECT_EQ(kind.hasAllowRule, kind.type == 3) << kind.type;
    }
}

TEST(LogKindsTest, TheHighestColumnIsFiveForTheFirewallThreeForTheUrlFilterAndTwoForOthers)
{
    for (const LogKind& kind : LogKinds())
    {
        EXPECT_EQ(kind.lastColumn, kind.type == 3 ? 5 : kind.type == 2 ? 3 : 2) << kind.type;
    }
}
