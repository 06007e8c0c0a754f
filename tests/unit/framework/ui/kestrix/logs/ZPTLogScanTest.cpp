#include "framework/ui/kestrix/logs/ZPTLogScan.h"

#include "tests/unit/framework/ui/kestrix/logs/LogClassTest.h"

using ZPTLogScanTest = LogClassTest<CZPTLogScan>;

TEST_F(ZPTLogScanTest, EveryResultHasItsText)
{
    const std::pair<const wchar_t*, UINT> results[] = {{L"0", 93}, {L"1", 94}, {L"2", 95},
                                                       {L"3", 96}, {L"4", 97}, {L"", 93}};
    for (const auto& [result, text] : results)
    {
        Expect({{L"x|1030|x|1045|x|1100|" + std::wstring(result) + L"|7|8|9|10|11|12",
                 {L"10:30", L"10:45", L"11:00", Text(text), L"7", L"8", L"9", L"10", L"11", L"12"}}});
    }
}

TEST_F(ZPTLogScanTest, AnUnknownResultKeepsNineFieldsAndThePaneReadsTheTokenOfTheFieldBehind)
{
    for (const wchar_t* const result : {L"5", L"-1", L"99999999999"})
    {
        Expect({{L"x|1030|x|1045|x|1100|" + std::wstring(result) + L"|7|8|9|10|11|12|13",
                 {L"10:30", L"10:45", L"11:00", L"7", L"8", L"9", L"10", L"11", L"12"}}});
    }
    Show(L"x|1030|x|1045|x|1100|5|7|8|9|10|11|12");
    EXPECT_EQ(m_pane[2].text, L"9");
    EXPECT_EQ(Cell(*m_log.GetLogRecord(0), 0), L"7");
}

TEST_F(ZPTLogScanTest, ALineWithoutToken12IsRefused)
{
    EXPECT_FALSE(Accepts(L"x|1030|x|1045|x|1100|0|7|8|9|10|11"));
    Expect({{L"||||||||||||", {L":", L":", L":", Text(93), L"", L"", L"", L"", L"", L""}}});
}

TEST_F(ZPTLogScanTest, TheOneColumnShowsTheResultAndIsSortedByTheTime)
{
    ExpectColumns({{85, 357}});
    ASSERT_GT(Text(94), Text(93));
    const LogRec& early = Put(L"x|1030|x|1045|x|1100|1|7|8|9|10|11|12");
    const LogRec& late = Put(L"x|1130|x|1145|x|1200|0|7|8|9|10|11|12");
    EXPECT_EQ(Cells(early), (Texts{Text(94), L"before"}));
    EXPECT_TRUE(IsBefore(early, late, 0));
}

TEST_F(ZPTLogScanTest, ThreeRowsShowStartEndAndPatternWhole)
{
    ExpectCaptions({84, 87, 220});
    const std::wstring version(200, L'8');
    Show(L"x|1030|x|1045|x|1100|0|7|" + version + L"|9|10|11|12");
    EXPECT_EQ(m_pane[0].text, L"10:45");
    EXPECT_FALSE(m_pane[0].isLink);
    EXPECT_EQ(m_pane[1].text, L"11:00");
    EXPECT_EQ(m_pane[2].text, version);
    EXPECT_FALSE(m_pane[3].isSet);
}

TEST_F(ZPTLogScanTest, WithoutARecordOrAPageNothingIsShown)
{
    ExpectNothingShownWithoutRecordOrPage(L"||||||||||||");
}

TEST_F(ZPTLogScanTest, TheExportHasTenLabelsOfWhichFiveAreTheSameInAllLanguages)
{
    ExpectExportLabels({Text(479), WithoutColons(84), WithoutColons(87), Text(85), L"MXAPI Engine Version",
                        WithoutColons(220), L"GRAPI Engine Version", L"GRAPI Da6 Version", L"Rqe Engine Version",
                        L"Rqe Pattern Version"});
}
