#include "framework/ui/kestrix/logs/ZPTLogPhish.h"

#include "resource/WebAndTaskTexts.h"
#include "tests/support/ChangedLanguageFile.h"
#include "tests/unit/framework/ui/kestrix/logs/LogClassTest.h"

using ZPTLogPhishTest = LogClassTest<CZPTLogPhish>;

TEST_F(ZPTLogPhishTest, Kind10KeepsToken5AsItsAddressAndToken6AsItsCategory)
{
    Expect({{L"x|103015|x|10|a|b|01|L1", {L"10:30", L"10", L"b", L"", Text(50), Text(1319)}}});
    EXPECT_EQ(Cell(*m_log.GetLogRecord(0), 1), L"b");
}

TEST_F(ZPTLogPhishTest, Kind80KeepsBothAddressesAndIsDangerousContentWhateverToken6Says)
{
    Expect({{L"x|103015|x|80|a|b|01|L1", {L"10:30", L"80", L"a", L"b", Text(58), Text(1319)}},
            {L"x|103015|x|80|a|b||L1|more", {L"10:30", L"80", L"a", L"b", Text(58), Text(1319)}}});
    EXPECT_EQ(Cell(*m_log.GetLogRecord(0), 1), L"b");
}

TEST_F(ZPTLogPhishTest, TheKindIsReadAsHexadecimal)
{
    for (const wchar_t* const kind : {L"80", L"0x80", L" +080", L"80z", L"0X80", L"-FFFFFF80"})
    {
        EXPECT_EQ(Put(L"x|1030|x|" + std::wstring(kind) + L"|a|b|01|L1").Field(3), L"b") << kind;
    }
    for (const wchar_t* const kind : {L"128", L"", L"z", L"-80", L"180", L"99999999999", L"80\x0661"})
    {
        EXPECT_EQ(Put(L"x|1030|x|" + std::wstring(kind) + L"|a|b|01|L1").Field(2), L"b") << kind;
    }
}

TEST_F(ZPTLogPhishTest, EveryCategoryHasItsTextAndAnyOtherThatOfOthers)
{
    const std::pair<const wchar_t*, UINT> categories[] = {{L"01", 50}, {L"97", 58}, {L"99", 341}, {L"42", 59},
                                                          {L"1", 59},  {L"", 59},   {L"01 ", 59}};
    for (const auto& [category, text] : categories)
    {
        EXPECT_EQ(Put(L"x|1030|x|1|a|b|" + std::wstring(category) + L"|L1").Field(4), Text(text)) << category;
    }
}

TEST_F(ZPTLogPhishTest, EveryLevelHasItsTextAndWRIsShownAsL2)
{
    const std::pair<const wchar_t*, UINT> levels[] = {{L"L1", 1319}, {L"L2", 1320}, {L"WR", 1320}, {L"L0", 1321},
                                                      {L"", 1321},   {L"L9", 1321}, {L"l1", 1321}, {L"L1 ", 1321}};
    for (const auto& [level, text] : levels)
    {
        EXPECT_EQ(Put(L"x|1030|x|1|a|b|01|" + std::wstring(level)).Field(5), Text(text)) << level;
    }
}

TEST_F(ZPTLogPhishTest, ALineWithoutToken7IsRefused)
{
    EXPECT_FALSE(Accepts(L"x|1030|x|1|a|b|01"));
    EXPECT_FALSE(Accepts(L"x|1030|x|80|a|b|01"));
    EXPECT_EQ(m_log.GetLogCount(), 0u);
}

TEST_F(ZPTLogPhishTest, ALogWithoutAPageStoresAnEmptyCategory)
{
    m_log.SetInfoDialog(nullptr);
    EXPECT_EQ(Put(L"x|1030|x|1|a|b|01|L1").Field(4), L"");
    EXPECT_EQ(Put(L"x|1030|x|80|a|b|01|L1").Field(4), L"");
}

TEST_F(ZPTLogPhishTest, TheTextOfACategoryIsEmptyWithoutARecordOrAPage)
{
    LogRec record(std::pmr::new_delete_resource());
    for (const wchar_t* const field : {L"10:30", L"1", L"b", L"", L"99"})
    {
        record.AppendLasting(field);
    }
    std::wstring text = L"before";
    m_log.GetPhishCategoryText(&record, text);
    EXPECT_EQ(text, Text(341));
    m_log.GetPhishCategoryText(nullptr, text);
    EXPECT_EQ(text, L"");
    m_log.SetInfoDialog(nullptr);
    text = L"before";
    m_log.GetPhishCategoryText(&record, text);
    EXPECT_EQ(text, L"");
}

// Token 3 of the next line decides anew; only a caller of MakeRecode can see what the one before left.
TEST_F(ZPTLogPhishTest, TheKindIsKeptForTheWholeProcess)
{
    EXPECT_FALSE(Accepts(L"x|1030|x|80"));
    CZPTLogPhish other;
    LogRec record(std::pmr::new_delete_resource());
    other.MakeRecode(4, L"a", record);
    EXPECT_EQ(record.strData.size(), 1u);
    Put(L"x|1030|x|1|a|b|01|L1");
    other.MakeRecode(4, L"a", record);
    EXPECT_EQ(record.strData.size(), 1u);
}

TEST_F(ZPTLogPhishTest, TheSecondColumnSortsByTheFirstAddressOfKind80AndTheOnlyOneOfOthers)
{
    ExpectColumns({{39, 100}, {420, 275}});
    const LogRec& dangerous = Put(L"x|1030|x|80|a|z|01|L1");
    const LogRec& other = Put(L"x|1100|x|10|y|b|01|L1");
    EXPECT_EQ(Cells(dangerous), (Texts{L"10:30", L"z", L"before"}));
    EXPECT_EQ(Cells(other), (Texts{L"11:00", L"b", L"before"}));
    EXPECT_TRUE(IsBefore(dangerous, other, 0));
    EXPECT_TRUE(IsBefore(dangerous, other, 1));
    EXPECT_TRUE(IsBefore(other, dangerous, 3));
    EXPECT_EQ(CompareUp(dangerous, other, 6), 0);
}

TEST_F(ZPTLogPhishTest, TheFirstRowIsDrawnTallAndTheFourthHasTheLevel)
{
    ExpectCaptions({57, 0, 0, 1318});
    Show(L"x|1030|x|1|a|b|01|L1");
    EXPECT_EQ(m_pane[0].text, Text(50));
    EXPECT_EQ(m_pane[0].toolTip, L"");
    EXPECT_EQ(m_pane.TallPixels(), std::stoi(Text(IDS_PHISHING_TALL_PIXELS)));
    EXPECT_EQ(m_pane[3].text, Text(1319));
    EXPECT_FALSE(m_pane[1].isSet);
}

// The height was once taken for missing where it was 0.
TEST_F(ZPTLogPhishTest, TheFirstRowGrowsByTheNumberOfItsTextAndBy220OnlyWithoutIt)
{
    const std::pair<std::wstring, int> heights[] = {{L"", 220}, {L"0", 0}, {L"none", 0}, {L"35 pixels", 35}};
    for (const auto& [text, pixels] : heights)
    {
        ChangedLanguageFile changed;
        changed.SetText(IDS_PHISHING_TALL_PIXELS, text);
        const LanguageFile language(changed.Path());
        Show(L"x|1030|x|1|a|b|01|L1");
        EXPECT_EQ(m_pane.TallPixels(), pixels) << text;
        m_log.ClearLog(); // its texts go with the file
    }
}

TEST_F(ZPTLogPhishTest, AShortRecordShowsNoCategoryAndLeavesTheLevel)
{
    LogRec record(std::pmr::new_delete_resource());
    m_log.SetLogInfo(&record);
    EXPECT_TRUE(m_pane[0].isSet);
    EXPECT_EQ(m_pane[0].text, L"");
    EXPECT_FALSE(m_pane[3].isSet);
}

TEST_F(ZPTLogPhishTest, WithoutARecordOrAPageNothingIsShown)
{
    ExpectNothingShownWithoutRecordOrPage(L"x|1030|x|1|a|b|01|L1");
}

TEST_F(ZPTLogPhishTest, TheExportHasFiveLabels)
{
    ExpectExportLabels({Text(376), Text(420), Text(355), WithoutColons(57), WithoutColons(1318)});
}
