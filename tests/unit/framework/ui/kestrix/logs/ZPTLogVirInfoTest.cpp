// What the virus log writes into the detail pane.

#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "tests/support/LanguageFile.h"

#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <string>

namespace
{

// A page that keeps what the log puts into its controls.
class PaneDouble : public CLogInfoPage
{
public:
    void SetInfoRow(std::size_t row, const std::wstring& caption, bool visible) override
    {
        m_mapCaption[row] = caption;
        m_mapRowVisible[row] = visible;
    }

    void SetInfoText(UINT control, const std::wstring& text) override { m_mapText[control] = text; }

    void SetInfoToolTip(UINT control, const std::wstring& text) override { m_mapToolTip[control] = text; }

    void ShowInfo(UINT control, bool show) override { m_mapShown[control] = show; }

    std::map<std::size_t, std::wstring> m_mapCaption;
    std::map<std::size_t, bool> m_mapRowVisible;
    std::map<UINT, std::wstring> m_mapText;
    std::map<UINT, std::wstring> m_mapToolTip;
    std::map<UINT, bool> m_mapShown;
};

class ZPTLogVirInfoTest : public ::testing::Test
{
protected:
    ZPTLogVirInfoTest() { m_log.SetInfoDialog(&m_pane); }

    void Show(std::wstring_view line)
    {
        ASSERT_TRUE(m_log.PutRecode(line, CZPTLogBase::AnyLine));
        m_log.SetLogInfo(m_log.GetLogRecord(m_log.GetLogCount() - 1));
    }

    const LanguageFile m_language;
    CZPTLogVir m_log;
    PaneDouble m_pane;
};

} // namespace

TEST_F(ZPTLogVirInfoTest, TheSevenRowsHaveTheirCaptionsAndAreVisible)
{
    m_log.SetInfoLabel();
    const UINT captions[] = {549, 550, 429, 430, 192, 193, 89};
    ASSERT_EQ(m_pane.m_mapCaption.size(), std::size(captions));
    for (std::size_t row = 0; row < std::size(captions); ++row)
    {
        EXPECT_EQ(m_pane.m_mapCaption[row], Text(captions[row])) << row;
        EXPECT_TRUE(m_pane.m_mapRowVisible[row]) << row;
    }
}

TEST_F(ZPTLogVirInfoTest, EveryValueStandsInItsControl)
{
    Show(L"x|103015|1048576|x|0|0|name|C:\\a.exe|2|0|1|1|detail");
    EXPECT_EQ(m_pane.m_mapText[1007], L"name");
    EXPECT_EQ(m_pane.m_mapText[1008], Text(150));
    EXPECT_EQ(m_pane.m_mapText[1010], L"C:\\a.exe");
    EXPECT_EQ(m_pane.m_mapText[1012], Text(147));
    EXPECT_EQ(m_pane.m_mapText[1014], Text(805));
    EXPECT_EQ(m_pane.m_mapText[1035], Text(802));
    EXPECT_EQ(m_pane.m_mapText[1040], L"detail");
}

TEST_F(ZPTLogVirInfoTest, AKnownNameIsALinkWithToolTip)
{
    Show(L"x|103015|1048576|x|0|0|name|C:\\a.exe|1|1|0|0|detail");
    EXPECT_EQ(m_pane.m_mapToolTip[1007], L"name");
    EXPECT_TRUE(m_pane.m_mapShown.at(1007));
    EXPECT_FALSE(m_pane.m_mapShown.at(1036));
    EXPECT_FALSE(m_pane.m_mapText.contains(1036));
}

TEST_F(ZPTLogVirInfoTest, TheSentinelNameIsShownAsPlainText)
{
    Show(L"x|103015|1048576|x|0|0|" + Text(51) + L"|C:\\a.exe|1|1|0|0|detail");
    EXPECT_EQ(m_pane.m_mapText[1036], Text(52));
    EXPECT_TRUE(m_pane.m_mapShown.at(1036));
    EXPECT_FALSE(m_pane.m_mapShown.at(1007));
    EXPECT_FALSE(m_pane.m_mapText.contains(1007));
}

TEST_F(ZPTLogVirInfoTest, ALongLocationIsCutInTheRowAndWholeInToolTipAndInfoText)
{
    const std::wstring location = L"C:\\" + std::wstring(200, L'x');
    const std::size_t limit = std::stoul(Text(55));
    Show(L"x|103015|1048576|x|0|0|name|" + location + L"|1|1|0|0|detail");
    EXPECT_EQ(m_pane.m_mapText[1010], location.substr(0, limit) + L"...");
    EXPECT_EQ(m_pane.m_mapToolTip[1010], location);
    EXPECT_EQ(m_log.GetInfoText(), location);
    Show(L"x|103015|1048576|x|0|0|name|short|1|1|0|0|detail");
    EXPECT_EQ(m_log.GetInfoText(), L"short");
    EXPECT_EQ(m_pane.m_mapToolTip[1010], L"short");
}

TEST_F(ZPTLogVirInfoTest, WithoutADetailTheLastRowShowsTheSecondAction)
{
    m_log.m_bUseDBMgr = false;
    Show(L"x|103015|1048576|x|0|0|name|C:\\a.exe|1|1|0|0");
    EXPECT_EQ(m_pane.m_mapText.at(1040), L"");
    Show(L"x|103015|1048576|x|0|0|name|C:\\a.exe|3|0|4|1");
    EXPECT_EQ(m_pane.m_mapText[1040], Text(800));
}

TEST_F(ZPTLogVirInfoTest, WithoutARecordOrAPageNothingIsShown)
{
    m_log.SetLogInfo(nullptr);
    EXPECT_TRUE(m_pane.m_mapText.empty() && m_pane.m_mapShown.empty());
    ASSERT_TRUE(m_log.PutRecode(L"x|103015|1|x|0|0|6|1|1|0|0|d", CZPTLogBase::AnyLine));
    m_log.SetInfoDialog(nullptr);
    m_log.SetLogInfo(m_log.GetLogRecord(0));
    EXPECT_TRUE(m_pane.m_mapText.empty() && m_pane.m_mapShown.empty());
}

TEST_F(ZPTLogVirInfoTest, ARecordShorterThanTheRowsIsTheVectorsOutOfRangeError)
{
    LogRec record(std::pmr::new_delete_resource());
    EXPECT_THROW(m_log.SetLogInfo(&record), std::out_of_range);
}
