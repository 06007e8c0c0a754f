#include "framework/ui/kestrix/app/page/PageHeadings.h"

#include "resource/resource.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/Picture.h"
#include "tests/ui/framework/ui/kestrix/app/page/PartWindow.h"

#include <gtest/gtest.h>

namespace
{

constexpr UINT AllHeadings[] = {IDC_HEADING_ENTRIES, IDC_HEADING_DATES, IDC_HEADING_DETAILS, IDC_DETAIL_FRAME};

class PageHeadingsTest : public ::testing::Test
{
protected:
    PageHeadingsTest()
    {
        LONG top = 0;
        for (const UINT heading : AllHeadings)
        {
            m_window.Add(WC_STATICW, heading, 0, {0, top, 100, top + 20}).SetWindowText(L"template");
            top += 30;
        }
        CDataExchange exchange = m_window.Exchange();
        m_headings.DoDataExchange(exchange);
        m_headings.Start();
    }

    const LanguageFile m_language;
    PartWindow m_window;
    CPageHeadings m_headings;
};

} // namespace

TEST_F(PageHeadingsTest, TheThreeHeadingsGetTheirTextsAndTheFrameKeepsItsOwn)
{
    EXPECT_EQ(m_window.Item(IDC_HEADING_ENTRIES).GetWindowText(), Text(547));
    EXPECT_EQ(m_window.Item(IDC_HEADING_DATES).GetWindowText(), Text(546));
    EXPECT_EQ(m_window.Item(IDC_HEADING_DETAILS).GetWindowText(), Text(548));
    EXPECT_EQ(m_window.Item(IDC_DETAIL_FRAME).GetWindowText(), L"template");
}

TEST_F(PageHeadingsTest, EachHeadingHasItsGroundAndItsFrameAndTheFrameOfTheDetailsShowsWhatIsBelowIt)
{
    const COLORREF below = PictureOf(m_window).At(300, 300);

    const struct
    {
        UINT heading;
        COLORREF ground;
        COLORREF frame;
    } looks[] = {
        {IDC_HEADING_ENTRIES, RGB(232, 234, 239), RGB(115, 132, 172)},
        {IDC_HEADING_DATES, RGB(232, 234, 239), RGB(115, 132, 172)},
        {IDC_HEADING_DETAILS, RGB(223, 226, 231), RGB(192, 201, 218)},
        {IDC_DETAIL_FRAME, below, RGB(192, 201, 218)},
    };

    for (const auto& expected : looks)
    {
        SCOPED_TRACE(expected.heading);
        const Picture look = PictureOf(m_window.Item(expected.heading));
        EXPECT_EQ(look.At(98, 1), expected.ground);
        EXPECT_EQ(look.At(0, 0), expected.frame);
        EXPECT_EQ(look.At(99, 19), expected.frame);
    }
}
