// What the virus log writes into the detail pane.

#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "tests/support/LogFixture.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace
{

using ZPTLogVirInfoTest = LogFixture<CZPTLogVir>;

} // namespace

TEST_F(ZPTLogVirInfoTest, TheSevenRowsHaveTheirCaptionsAndAreVisible)
{
    m_log.SetInfoLabel();
    const UINT captions[] = {549, 550, 429, 430, 192, 193, 89};
    for (std::size_t row = 0; row < std::size(captions); ++row)
    {
        EXPECT_EQ(m_pane[row].caption, Text(captions[row])) << row;
        EXPECT_TRUE(m_pane[row].visible) << row;
    }
}

TEST_F(ZPTLogVirInfoTest, EveryValueStandsInItsRow)
{
    Show(L"x|103015|1048576|x|0|0|name|C:\\a.exe|2|0|1|1|detail");
    const std::wstring values[] = {L"name", Text(150), L"C:\\a.exe", Text(147), Text(805), Text(802), L"detail"};
    for (std::size_t row = 0; row < std::size(values); ++row)
    {
        EXPECT_EQ(m_pane[row].text, values[row]) << row;
    }
}

TEST_F(ZPTLogVirInfoTest, AKnownNameIsALinkWithToolTip)
{
    Show(L"x|103015|1048576|x|0|0|name|C:\\a.exe|1|1|0|0|detail");
    EXPECT_TRUE(m_pane[0].isLink);
    EXPECT_EQ(m_pane[0].toolTip, L"name");
}

TEST_F(ZPTLogVirInfoTest, TheSentinelNameIsShownAsPlainText)
{
    Show(L"x|103015|1048576|x|0|0|" + Text(51) + L"|C:\\a.exe|1|1|0|0|detail");
    EXPECT_FALSE(m_pane[0].isLink);
    EXPECT_EQ(m_pane[0].text, Text(52));
}

TEST_F(ZPTLogVirInfoTest, ALongLocationIsCutInTheRowAndWholeInToolTipAndInfoText)
{
    const std::wstring location = L"C:\\" + std::wstring(200, L'x');
    const std::size_t limit = std::stoul(Text(55));
    Show(L"x|103015|1048576|x|0|0|name|" + location + L"|1|1|0|0|detail");
    EXPECT_EQ(m_pane[2].text, location.substr(0, limit) + L"...");
    EXPECT_EQ(m_pane[2].toolTip, location);
    EXPECT_EQ(m_log.GetInfoText(), location);
    Show(L"x|103015|1048576|x|0|0|name|short|1|1|0|0|detail");
    EXPECT_EQ(m_log.GetInfoText(), L"short");
    EXPECT_EQ(m_pane[2].toolTip, L"short");
}

TEST_F(ZPTLogVirInfoTest, WithoutADetailTheLastRowShowsTheSecondAction)
{
    UseFiles();
    Show(L"x|103015|1048576|x|0|0|name|C:\\a.exe|1|1|0|0");
    EXPECT_TRUE(m_pane[6].isSet);
    EXPECT_EQ(m_pane[6].text, L"");
    Show(L"x|103015|1048576|x|0|0|name|C:\\a.exe|3|0|4|1");
    EXPECT_EQ(m_pane[6].text, Text(800));
}

TEST_F(ZPTLogVirInfoTest, WithoutARecordOrAPageNothingIsShown)
{
    m_log.SetLogInfo(nullptr);
    EXPECT_TRUE(m_pane.IsUntouched());
    ASSERT_TRUE(Accepts(L"x|103015|1|x|0|0|6|1|1|0|0|d"));
    m_log.SetInfoDialog(nullptr);
    m_log.SetLogInfo(m_log.GetLogRecord(0));
    EXPECT_TRUE(m_pane.IsUntouched());
}

TEST_F(ZPTLogVirInfoTest, ARecordShorterThanTheRowsIsTheVectorsOutOfRangeError)
{
    LogRec record(std::pmr::new_delete_resource());
    EXPECT_THROW(m_log.SetLogInfo(&record), std::out_of_range);
}
