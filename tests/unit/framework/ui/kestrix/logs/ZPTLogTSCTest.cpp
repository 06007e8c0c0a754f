#include "framework/ui/kestrix/logs/ZPTLogTSC.h"

#include "tests/unit/framework/ui/kestrix/logs/LogClassTest.h"

using ZPTLogTSCTest = LogClassTest<CZPTLogTSC>;

TEST_F(ZPTLogTSCTest, EveryResultHasItsTextAndIconAndResult2AnEmptySecondColumnAndTheIconAtIndex1)
{
    Expect({{L"x|103015|name|0|detail", {L"10:30", L"name", Text(379), L"detail"}, 2},
            {L"x|103015|name|1|detail", {L"10:30", L"name", Text(380), L"detail"}, 0},
            {L"x|103015|name|2|detail", {L"10:30", L"name", L"", L"detail"}, 1},
            {L"x|103015|name|-1|detail", {L"10:30", L"name", L"", L"detail"}, 1},
            {L"x|1||none|", {L"1:", L"", Text(379), L""}, 2},
            {L"|||||more|and more", {L":", L"", Text(379), L""}, 2}});
    EXPECT_EQ(Cell(*m_log.GetLogRecord(2), 1), L"");
}

TEST_F(ZPTLogTSCTest, AProviderLineNeedsToken4AndAFileLineToken3)
{
    EXPECT_FALSE(Accepts(L"x|103015|name|1"));
    UseFiles();
    EXPECT_FALSE(Accepts(L"x|103015|name"));
    Expect({{L"x|103015|name|1", {L"10:30", L"name", Text(380), L""}, 0},
            {L"x|103015|name|0|detail", {L"10:30", L"name", Text(379), L"detail"}, 2}});
}

TEST_F(ZPTLogTSCTest, TheColumnsShowTimeResultAndName)
{
    ExpectColumns({{39, 100}, {38, 150}, {81, 125}});
    EXPECT_EQ(Cells(Put(L"x|103015|name|1|detail")), (Texts{L"10:30", Text(380), L"name", L"before"}));
}

TEST_F(ZPTLogTSCTest, TheColumnsSortByWhatTheyShowAndOthersByTheFieldOfTheirNumber)
{
    ASSERT_LT(Text(380), Text(379));
    const LogRec& done = Put(L"x|1030|b|1|2");
    const LogRec& failed = Put(L"x|1100|a|0|3");
    EXPECT_TRUE(IsBefore(done, failed, 0));
    EXPECT_TRUE(IsBefore(done, failed, 1));
    EXPECT_TRUE(IsBefore(failed, done, 2));
    EXPECT_TRUE(IsBefore(done, failed, 3));
    EXPECT_EQ(CompareUp(done, failed, 4), 0);
}

TEST_F(ZPTLogTSCTest, TheFirstRowShowsTheNameAsALinkWithoutToolTipAndTheSecondTheLastField)
{
    ExpectCaptions({549, 89});
    const std::wstring name(200, L'n');
    Show(L"x|103015|" + name + L"|1|detail");
    EXPECT_EQ(m_pane[0].text, name);
    EXPECT_TRUE(m_pane[0].isLink);
    EXPECT_EQ(m_pane[0].toolTip, L"");
    EXPECT_EQ(m_pane[1].text, L"detail");
    EXPECT_FALSE(m_pane[2].isSet);
}

TEST_F(ZPTLogTSCTest, OfAFileLineTheSecondRowStaysEmpty)
{
    UseFiles();
    Show(L"x|103015|name|0");
    EXPECT_TRUE(m_pane[1].isSet);
    EXPECT_EQ(m_pane[1].text, L"");
}

TEST_F(ZPTLogTSCTest, WithoutARecordOrAPageNothingIsShown)
{
    ExpectNothingShownWithoutRecordOrPage(L"x|103015|name|0|");
}

TEST_F(ZPTLogTSCTest, TheExportHasFourLabels)
{
    ExpectExportLabels({Text(376), Text(81), Text(38), WithoutColons(89)});
}
