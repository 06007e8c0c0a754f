#include "framework/ui/kestrix/logs/ZPTLogVA.h"

#include "tests/unit/framework/ui/kestrix/logs/LogClassTest.h"

using ZPTLogVATest = LogClassTest<CZPTLogVA>;

TEST_F(ZPTLogVATest, EveryRiskHasItsTextAndIconAndAnyOtherTheLastIcon)
{
    Expect({{L"x|103015|x|0|0|s", {L"10:30", L"x", Text(331), Text(347), L"s"}, 0},
            {L"x|103015|x|1|1|s", {L"10:30", L"x", Text(332), Text(348), L"s"}, 1},
            {L"x|103015|x|2|2|s", {L"10:30", L"x", Text(333), Text(349), L"s"}, 2},
            {L"x|103015|x|3|3|s", {L"10:30", L"x", Text(334), Text(350), L"s"}, 3},
            {L"x|103015|x|4|-1|s", {L"10:30", L"x", Text(335), Text(350), L"s"}, 4},
            {L"x|103015|x|5|4|s", {L"10:30", L"x", Text(336), Text(350), L"s"}, 5},
            {L"x|103015|x|7|0x1|s|more", {L"10:30", L"x", Text(336), Text(347), L"s"}, 5},
            {L"x|103015|x|-1||s", {L"10:30", L"x", Text(336), Text(347), L"s"}, 5}});
}

TEST_F(ZPTLogVATest, AnEmptyNameAndFirstCode0WhateverTheSecondCodeSays)
{
    for (const wchar_t* const codes : {L"0|0", L"0|1", L"4|2", L"9|9"})
    {
        Expect({{L"x|103015||" + std::wstring(codes) + L"|s", {L"10:30", Text(328), Text(361), Text(362), L"s"}, 5}});
    }
}

TEST_F(ZPTLogVATest, AnEmptyToken5ShowsThatThereIsNoSolution)
{
    Expect({{L"x|103015|x|0|0|", {L"10:30", L"x", Text(331), Text(347), Text(337)}, 0}});
}

TEST_F(ZPTLogVATest, ALineWithoutToken5IsRefused)
{
    EXPECT_FALSE(Accepts(L"x|103015|x|0|0"));
    EXPECT_FALSE(Accepts(L"x"));
    EXPECT_EQ(m_log.GetLogCount(), 0u);
}

// Token 2 of the next line decides anew; only a caller of MakeRecode can see what the one before left.
TEST_F(ZPTLogVATest, WhetherTheNameIsEmptyIsKeptForTheWholeProcess)
{
    EXPECT_FALSE(Accepts(L"x|103015|"));
    CZPTLogVA other;
    LogRec record(std::pmr::new_delete_resource());
    other.MakeRecode(3, L"0", record);
    EXPECT_EQ(record.Field(0), Text(361));
    Expect({{L"x|103015|x|0|0|s", {L"10:30", L"x", Text(331), Text(347), L"s"}, 0}});
}

TEST_F(ZPTLogVATest, TheColumnsShowAndSortByTimeNameAndRisk)
{
    ExpectColumns({{39, 100}, {195, 150}, {764, 125}});
    const LogRec& first = Put(L"x|1030|b|1|0|s");
    const LogRec& second = Put(L"x|1100|a|2|0|s");
    EXPECT_EQ(Cells(first), (Texts{L"10:30", L"b", Text(332), L"before"}));
    EXPECT_TRUE(IsBefore(first, second, 0));
    EXPECT_TRUE(IsBefore(second, first, 1));
    ASSERT_LT(Text(332), Text(333));
    EXPECT_TRUE(IsBefore(first, second, 2));
    EXPECT_EQ(CompareUp(first, second, 5), 0);
}

TEST_F(ZPTLogVATest, TheOneRowShowsTheSecondCodeAsText)
{
    ExpectCaptions({346});
    Show(L"x|103015|x|0|1|s");
    EXPECT_EQ(m_pane[0].text, Text(348));
    EXPECT_FALSE(m_pane[0].isLink);
    EXPECT_FALSE(m_pane[1].isSet);
}

TEST_F(ZPTLogVATest, WithoutARecordOrAPageNothingIsShown)
{
    ExpectNothingShownWithoutRecordOrPage(L"x|103015|x|0|0|s");
}

TEST_F(ZPTLogVATest, TheExportHasFiveLabels)
{
    ExpectExportLabels({Text(39), Text(589), Text(330), Text(346), Text(590)});
}
