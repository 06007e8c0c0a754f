#include "framework/ui/kestrix/logs/ZPTLogSkipTask.h"

#include "tests/unit/framework/ui/kestrix/logs/LogClassTest.h"

using ZPTLogSkipTaskTest = LogClassTest<CZPTLogSkipTask>;

TEST_F(ZPTLogSkipTaskTest, EveryTaskAndReasonHasItsText)
{
    Expect({{L"x|x|x|103015|0|0", {L"10:30", Text(221), Text(224)}},
            {L"x|x|x|103015|1|1", {L"10:30", Text(222), Text(225)}},
            {L"x|x|x|103015|2|2|more", {L"10:30", Text(223), Text(226)}},
            {L"|||||", {L":", Text(221), Text(224)}}});
}

TEST_F(ZPTLogSkipTaskTest, AnUnknownReasonRefusesTheLineAsAWhole)
{
    for (const wchar_t* const reason : {L"3", L"-1", L"99999999999"})
    {
        EXPECT_FALSE(Accepts(L"x|x|x|103015|0|" + std::wstring(reason))) << reason;
        EXPECT_FALSE(Accepts(L"x|x|x|103015|0|" + std::wstring(reason) + L"|0")) << reason;
    }
    EXPECT_FALSE(Accepts(L"x|x|x|103015|0"));
    EXPECT_EQ(m_log.GetLogCount(), 0u);
}

TEST_F(ZPTLogSkipTaskTest, AnUnknownTaskStaysAndTheSecondColumnShowsTheReason)
{
    Expect({{L"x|x|x|103015|3|0", {L"10:30", Text(224)}}});
    EXPECT_EQ(Cell(*m_log.GetLogRecord(0), 1), Text(224));
    EXPECT_THROW(m_log.SetLogInfo(m_log.GetLogRecord(0)), std::out_of_range);
}

TEST_F(ZPTLogSkipTaskTest, TheColumnsShowAndSortByTimeAndTask)
{
    ExpectColumns({{39, 100}, {227, 257}});
    ASSERT_LT(Text(221), Text(223));
    const LogRec& first = Put(L"x|x|x|1030|0|2");
    const LogRec& second = Put(L"x|x|x|1100|2|0");
    EXPECT_EQ(Cells(first), (Texts{L"10:30", Text(221), L"before"}));
    EXPECT_TRUE(IsBefore(first, second, 0));
    EXPECT_TRUE(IsBefore(first, second, 1));
    EXPECT_EQ(CompareUp(first, second, 3), 0);
}

TEST_F(ZPTLogSkipTaskTest, TheOneRowShowsTheReason)
{
    ExpectCaptions({229});
    Show(L"x|x|x|1030|0|2");
    EXPECT_EQ(m_pane[0].text, Text(226));
    EXPECT_FALSE(m_pane[0].isLink);
}

TEST_F(ZPTLogSkipTaskTest, WithoutARecordOrAPageNothingIsShown)
{
    ExpectNothingShownWithoutRecordOrPage(L"|||||");
}

TEST_F(ZPTLogSkipTaskTest, TheExportHasThreeLabels)
{
    ExpectExportLabels({Text(39), Text(227), WithoutColons(229)});
}
