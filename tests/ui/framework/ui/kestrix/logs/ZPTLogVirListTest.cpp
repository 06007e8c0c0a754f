// The virus log in the page's list.

#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/ui/framework/ui/kestrix/logs/LogWindow.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

using Texts = std::vector<std::wstring>;

class ZPTLogVirListTest : public ::testing::Test
{
protected:
    ZPTLogVirListTest()
    {
        const std::wstring path = m_folder.File(L"20260101.VLG");
        WriteUtf16(path, L"x|0900|1048576|x|0|0|beta|p|2|0|1|1\r\n"
                         L"x|0915|1|x|alpha|s|f|4|1|0|0\r\n"
                         L"x|0930|1048576|x|0|0|gamma|p|0|0|0|0\r\n");
        m_log.m_bUseDBMgr = false;
        m_log.SetListCtrl(&m_window.m_list);
        m_log.SetListColumn();
        m_log.ReadLogW(path);
        m_window.m_pLog = &m_log;
    }

    int ImageOf(int item) const
    {
        LVITEMW get{};
        get.mask = LVIF_IMAGE;
        get.iItem = item;
        m_window.m_list.SendMessage(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&get));
        return get.iImage;
    }

    const LanguageFile m_language;
    TemporaryFolder m_folder;
    LogWindow m_window;
    CZPTLogVir m_log;
};

} // namespace

TEST_F(ZPTLogVirListTest, ADailyFileStandsInTheListNewestFirst)
{
    ASSERT_TRUE(m_log.SetListLog());
    ASSERT_EQ(m_window.m_list.GetItemCount(), 3);
    EXPECT_EQ(m_window.Row(0, 3), (Texts{L"09:30", Text(30), L"gamma"}));
    EXPECT_EQ(m_window.Row(1, 3), (Texts{L"09:15", Text(800), L"alpha"}));
    EXPECT_EQ(m_window.Row(2, 3), (Texts{L"09:00", Text(802), L"beta"})) << "the second action's text";
}

TEST_F(ZPTLogVirListTest, EveryRowShowsItsRecordsIcon)
{
    ASSERT_TRUE(m_log.SetListLog());
    EXPECT_EQ(ImageOf(0), 0);
    EXPECT_EQ(ImageOf(1), 0);
    EXPECT_EQ(ImageOf(2), 1);
}

TEST_F(ZPTLogVirListTest, TheListHasTheLogsIcons)
{
    const auto images = reinterpret_cast<HIMAGELIST>(m_window.m_list.SendMessage(LVM_GETIMAGELIST, LVSIL_SMALL));
    ASSERT_NE(images, nullptr);
    EXPECT_GE(ImageList_GetImageCount(images), 4);
    int width = 0;
    int height = 0;
    ASSERT_TRUE(ImageList_GetIconSize(images, &width, &height));
    EXPECT_EQ(width, 16);
}

TEST_F(ZPTLogVirListTest, TheThreeColumnsHaveTheirWidths)
{
    EXPECT_EQ(m_window.m_list.GetColumnWidth(0), 100);
    EXPECT_EQ(m_window.m_list.GetColumnWidth(1), 150);
    EXPECT_EQ(m_window.m_list.GetColumnWidth(2), 125);
    EXPECT_EQ(m_window.m_list.SortHeader().GetItemCount(), 3);
}

TEST_F(ZPTLogVirListTest, ItsComparePairSortsByWhatTheColumnsShow)
{
    ASSERT_TRUE(m_log.SetListLog());
    m_window.m_list.SortItems(m_log.m_pfnCompareUp, 2);
    EXPECT_EQ(m_window.Column(2), (Texts{L"alpha", L"beta", L"gamma"}));
    m_window.m_list.SortItems(m_log.m_pfnCompareDn, 2);
    EXPECT_EQ(m_window.Column(2), (Texts{L"gamma", L"beta", L"alpha"}));
    Texts outcomes{Text(30), Text(800), Text(802)};
    std::ranges::sort(outcomes);
    m_window.m_list.SortItems(m_log.m_pfnCompareUp, 1);
    EXPECT_EQ(m_window.Column(1), outcomes);
    m_window.m_list.SortItems(m_log.m_pfnCompareDn, 0);
    EXPECT_EQ(m_window.Column(0), (Texts{L"09:30", L"09:15", L"09:00"}));
}

TEST_F(ZPTLogVirListTest, WithoutAListItFails)
{
    CZPTLogVir log;
    EXPECT_FALSE(log.SetListLog());
}
