#include "framework/ui/kestrix/logs/ZPTLogPVY.h"

#include "tests/unit/framework/ui/kestrix/logs/LogClassTest.h"

using ZPTLogPVYTest = LogClassTest<CZPTLogPVY>;

TEST_F(ZPTLogPVYTest, Kind2JoinsToken7AndToken6)
{
    Expect({{L"x|103015|2|x|subject|0|item|what", {L"10:30", L"subject", Text(437), L"what \"item\""}},
            {L"x|103015|2|x|subject|0|5%I6|50%%", {L"10:30", L"subject", Text(437), L"50% \"5|6\""}},
            {L"x|103015|2|x|subject|0||", {L"10:30", L"subject", Text(437), L" \"\""}}});
}

TEST_F(ZPTLogPVYTest, AnyOtherKindShowsToken6AndDropsToken7)
{
    for (const wchar_t* const kind : {L"1", L"0", L"", L"3", L"-2", L"x2"})
    {
        Expect(
            {{L"x|103015|" + std::wstring(kind) + L"|x|a%Ib|0|item%I|what", {L"10:30", L"a%Ib", Text(437), L"item|"}}});
    }
}

TEST_F(ZPTLogPVYTest, AnyOtherResultStandsAsItIsWithTheFirstIcon)
{
    Expect({{L"x|103015|1|x|s|0|item|", {L"10:30", L"s", Text(437), L"item"}, 0},
            {L"x|103015|1|x|s|101|item|", {L"10:30", L"s", Text(436), L"item"}, 1},
            {L"x|103015|1|x|s|5|item|", {L"10:30", L"s", L"5", L"item"}, 0},
            {L"x|103015|1|x|s|-1z|item|", {L"10:30", L"s", L"-1z", L"item"}, 0},
            {L"x|103015|1|x|s|none|item|", {L"10:30", L"s", Text(437), L"item"}, 0}});
    EXPECT_EQ(Cell(*m_log.GetLogRecord(2), 1), L"5");
}

TEST_F(ZPTLogPVYTest, ALineWithoutToken7IsRefused)
{
    EXPECT_FALSE(Accepts(L"x|103015|2|x|s|0|item"));
    EXPECT_FALSE(Accepts(L"x|103015|1|x|s|0|item"));
}

// The next line brings its own kind and item; only a caller of MakeRecode can see what the one before left.
TEST_F(ZPTLogPVYTest, KindAndItemAreKeptForTheWholeProcess)
{
    EXPECT_FALSE(Accepts(L"x|103015|2|x|s|0|item"));
    CZPTLogPVY other;
    LogRec record(std::pmr::new_delete_resource());
    other.MakeRecode(7, L"what", record);
    EXPECT_EQ(record.Field(0), L"what \"item\"");
    Expect({{L"x|103015|1|x|s|0|new|", {L"10:30", L"s", Text(437), L"new"}},
            {L"x|103015|2|x|s|0||what", {L"10:30", L"s", Text(437), L"what \"\""}}});
}

TEST_F(ZPTLogPVYTest, TheColumnsShowAndSortByTimeResultAndData)
{
    ExpectColumns({{39, 100}, {38, 150}, {433, 125}});
    ASSERT_LT(Text(437), Text(436));
    const LogRec& first = Put(L"x|1030|1|x|b|0|item|");
    const LogRec& second = Put(L"x|1100|1|x|a|101|jtem|");
    EXPECT_EQ(Cells(first), (Texts{L"10:30", Text(437), L"b", L"before"}));
    EXPECT_TRUE(IsBefore(first, second, 0));
    EXPECT_TRUE(IsBefore(first, second, 1));
    EXPECT_TRUE(IsBefore(second, first, 2));
    EXPECT_TRUE(IsBefore(first, second, 3));
}

TEST_F(ZPTLogPVYTest, ATextOfTheLimitAnd3CharactersIsShownWholeAndTheToolTipIsWholeInAnyCase)
{
    ExpectCaptions({551, 434});
    const std::wstring whole(m_log.m_nInfoTextLimit + 3, L's');
    const std::wstring longer = whole + L's';
    Show(L"x|103015|1|x|" + whole + L"|0|" + longer + L"|");
    EXPECT_EQ(m_pane[0].text, whole);
    EXPECT_EQ(m_pane[0].toolTip, whole);
    EXPECT_FALSE(m_pane[0].isLink);
    EXPECT_EQ(m_pane[1].text, longer.substr(0, m_log.m_nInfoTextLimit) + L"...");
    EXPECT_EQ(m_pane[1].toolTip, longer);
    EXPECT_FALSE(m_pane[2].isSet);
}

TEST_F(ZPTLogPVYTest, WithoutARecordOrAPageNothingIsShown)
{
    ExpectNothingShownWithoutRecordOrPage(L"x|103015|1|x|s|0|item|");
}

TEST_F(ZPTLogPVYTest, TheExportHasFourLabels)
{
    ExpectExportLabels({Text(432), Text(433), Text(38), WithoutColons(434)});
}
