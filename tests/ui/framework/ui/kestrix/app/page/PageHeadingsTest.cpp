#include "framework/ui/kestrix/app/page/PageHeadings.h"

#include "resource/resource.h"
#include "tests/support/LanguageFile.h"
#include "tests/ui/framework/ui/kestrix/app/page/PartWindow.h"

#include <gtest/gtest.h>

TEST(PageHeadingsTest, TheThreeHeadingsGetTheirTextsAndTheFrameKeepsItsOwn)
{
    const LanguageFile language;
    PartWindow window;
    for (const UINT heading : {IDC_HEADING_ENTRIES, IDC_HEADING_DATES, IDC_HEADING_DETAILS, IDC_DETAIL_FRAME})
    {
        window.Add(WC_STATICW, heading).SetWindowText(L"template");
    }
    CPageHeadings headings;
    CDataExchange exchange = window.Exchange();
    headings.DoDataExchange(exchange);
    headings.Start();
    EXPECT_EQ(window.Item(IDC_HEADING_ENTRIES).GetWindowText(), Text(547));
    EXPECT_EQ(window.Item(IDC_HEADING_DATES).GetWindowText(), Text(546));
    EXPECT_EQ(window.Item(IDC_HEADING_DETAILS).GetWindowText(), Text(548));
    EXPECT_EQ(window.Item(IDC_DETAIL_FRAME).GetWindowText(), L"template");
}
