// What the spyware log writes into the detail pane.

#include "framework/ui/kestrix/logs/ZPTLogSpyware.h"

#include "tests/support/LogFixture.h"
#include "tests/support/TraceRecorder.h"

namespace
{

class ZPTLogSpywareInfoTest : public LogFixture<CZPTLogSpyware>
{
protected:
    const InfoPaneDouble& ShowScan(std::wstring_view folder, std::wstring_view object, std::wstring_view threat = L"n",
                                   std::wstring_view type = L"t")
    {
        return Show(L"x|103015|0x100000|3|4|" + std::wstring(object) + L"|" + std::wstring(folder) + L"|7|8|9|" +
                    std::wstring(threat) + L"|11|1|" + std::wstring(type) + L"|detail");
    }
};

} // namespace

TEST_F(ZPTLogSpywareInfoTest, ARecordOfAScanFillsSixRows)
{
    const InfoPaneDouble& pane = ShowScan(L"C:\\dir", L"a.exe", L"Adware", L"Toolbar");
    const InfoPaneDouble::Row rows[] = {
        {Text(549), L"Adware", L"Adware", true, true, true, false},
        {Text(550), L"Toolbar", L"Toolbar", true, false, true, true},
        {Text(429), L"C:\\dir\\a.exe", L"C:\\dir\\a.exe", true, false, true, false},
        {Text(430), Text(147), L"", true, false, true, false},
        {Text(618), Text(316), L"", true, false, true, false},
        {Text(89), L"detail", L"", true, false, true, false},
        {Text(193), L"", L"", false, false, false, false},
    };
    for (std::size_t row = 0; row < std::size(rows); ++row)
    {
        EXPECT_EQ(pane[row], rows[row]) << row;
    }
}

// It lacks the detail, so the row of the detail has its last field, the type.
TEST_F(ZPTLogSpywareInfoTest, ARecordOfAScanFromAFileHasJustEnoughFieldsToBeShown)
{
    UseFiles();
    const InfoPaneDouble& pane = Show(L"x|103015|0x100000|3|4|a.exe|C:\\dir|7|8|9|Adware|11|1|Toolbar");
    ASSERT_EQ(m_log.GetLogRecord(0)->strData.size(), 9u);
    EXPECT_EQ(pane[0].text, L"Adware");
    EXPECT_EQ(pane[2].text, L"C:\\dir\\a.exe");
    EXPECT_EQ(pane[5].text, L"Toolbar");
}

TEST_F(ZPTLogSpywareInfoTest, AThreatWithoutANameIsNoLinkAndItsTypeUnknown)
{
    const InfoPaneDouble& pane = ShowScan(L"C:\\dir", L"a.exe", Text(51), L"");
    EXPECT_FALSE(pane[0].isLink);
    EXPECT_EQ(pane[0].text, Text(52));
    EXPECT_EQ(pane[1].text, m_log.TruncateText(Text(814)));
    EXPECT_EQ(pane[1].toolTip, Text(814));
    EXPECT_TRUE(pane[1].isDrawn);
}

TEST_F(ZPTLogSpywareInfoTest, AnEmptyTypeOfAThreatWithANameAndATypeOfOneWithoutAreShownAsTheyAre)
{
    EXPECT_EQ(ShowScan(L"C:\\dir", L"a.exe", L"Adware", L"")[1].text, L"");
    EXPECT_EQ(ShowScan(L"C:\\dir", L"a.exe", Text(51), L"Toolbar")[1].text, L"Toolbar");
}

// The pane draws it with dots where it does not fit.
TEST_F(ZPTLogSpywareInfoTest, ALongTypeIsNotCutByTheLog)
{
    const std::wstring type(250, L'x');
    EXPECT_EQ(ShowScan(L"C:\\dir", L"a.exe", L"Adware", type)[1].text, type);
}

TEST_F(ZPTLogSpywareInfoTest, ThePathIsFolderAndFileUnlessTheFolderNamesTheFile)
{
    struct
    {
        const wchar_t* folder;
        const wchar_t* object;
        const wchar_t* path;
        const wchar_t* folderAfter;
    } const cases[] = {
        {L"C:\\dir", L"a.exe", L"C:\\dir\\a.exe", L"C:\\dir\\"},
        {L"C:\\dir\\", L"a.exe", L"C:\\dir\\a.exe", L"C:\\dir\\"},
        {L"C:\\dir\\a.exe", L"a.exe", L"C:\\dir\\a.exe", L"C:\\dir\\a.exe"},
        {L"C:\\a.exe\\dir", L"a.exe", L"C:\\a.exe\\dir", L"C:\\a.exe\\dir"},
        {L"", L"a.exe", L"a.exe", L""},
        {L"C:\\dir", L"", L"C:\\dir", L"C:\\dir"},
        {L"", L"", L"", L""},
        {L"C:\\A.EXE", L"a.exe", L"C:\\A.EXE\\a.exe", L"C:\\A.EXE\\"},
    };

    for (const auto& each : cases)
    {
        const InfoPaneDouble& pane = ShowScan(each.folder, each.object);
        EXPECT_EQ(pane[2].text, each.path);
        EXPECT_EQ(pane[2].toolTip, each.path);
        EXPECT_EQ(m_log.GetInfoText(), each.path);
        EXPECT_EQ(m_log.GetLogText(m_log.GetLogCount() - 1, 3), each.folderAfter);
    }
}

TEST_F(ZPTLogSpywareInfoTest, TheBackslashStaysInTheRecordForTheNextClick)
{
    ShowScan(L"C:\\dir", L"a.exe");
    LogRec& record = *m_log.GetLogRecord(0);
    m_log.SetLogInfo(&record);
    EXPECT_EQ(m_pane[2].text, L"C:\\dir\\a.exe");
    EXPECT_EQ(record.Field(3), L"C:\\dir\\");
}

TEST_F(ZPTLogSpywareInfoTest, ALongPathIsCutInTheRowAndWholeInToolTipAndInfoText)
{
    const std::wstring folder = L"C:\\" + std::wstring(200, L'x');
    const InfoPaneDouble& pane = ShowScan(folder, L"a.exe");
    const std::wstring path = folder + L"\\a.exe";
    EXPECT_EQ(pane[2].text, m_log.TruncateText(path));
    EXPECT_NE(pane[2].text, path);
    EXPECT_EQ(pane[2].toolTip, path);
    EXPECT_EQ(m_log.GetInfoText(), path);
}

// The pane kept the details of the record that was shown before, as if they were this one's.
TEST_F(ZPTLogSpywareInfoTest, ARecordOfTheBehaviorMonitorShowsNothingAndIsTraced)
{
    m_log.SetLogInfo(&Put(L"x|103015|0x100000|3|4|a.exe|C:\\dir|7|8|9|n|11|1|t|d"));
    ASSERT_EQ(m_log.GetInfoText(), L"C:\\dir\\a.exe");
    LogRec& record = Put(L"x|103015|0x10000000|3|1|5|6|7|program|0|10|11|1|13|14|rule");
    TraceRecorder trace;
    m_log.SetLogInfo(&record);
    for (std::size_t row = 0; row < CLogInfoPage::InfoRows; ++row)
    {
        EXPECT_EQ(m_pane[row].text, L"") << row;
        EXPECT_EQ(m_pane[row].toolTip, L"") << row;
    }
    EXPECT_EQ(m_log.GetInfoText(), L"") << "no whole text of another record opens";
    EXPECT_EQ(trace.Errors(), std::vector{L"CZPTLogSpyware::SetLogInfo() - pLogRec->strData is invalid. size = [" +
                                          std::to_wstring(record.strData.size()) + L"]"});
}

TEST_F(ZPTLogSpywareInfoTest, WithoutARecordOrAPageNothingIsShownNorChanged)
{
    m_log.SetLogInfo(nullptr);
    EXPECT_TRUE(m_pane.IsUntouched());
    LogRec& record = Put(L"x|103015|0x100000|3|4|a.exe|C:\\dir|7|8|9|n|11|1|t|d");
    m_log.SetInfoDialog(nullptr);
    m_log.SetLogInfo(&record);
    EXPECT_TRUE(m_pane.IsUntouched());
    EXPECT_EQ(record.Field(3), L"C:\\dir");
}
