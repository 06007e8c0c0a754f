// What of the detail pane can be copied, and when a rule can be made.

#include "tests/ui/framework/ui/kestrix/app/page/DetailPaneTest.h"

#include <string>

TEST_F(DetailPaneTest, ThereIsNothingToCopyBeforeARecordIsShown)
{
    m_pane.SetKind(LinkKind);
    m_pane.SetInfoRow(0, L"Caption:", true);
    EXPECT_FALSE(m_pane.HasValues());
    EXPECT_EQ(m_pane.AllText(), L"");
}

TEST_F(DetailPaneTest, TheCopyOfAllHasALineOfEachRowThatIsShownWithItsWholeValue)
{
    for (std::size_t row = 0; row < CLogInfoPage::InfoRows; ++row)
    {
        m_pane.SetInfoRow(row, L"Row " + std::to_wstring(row) + L":", row < 4);
    }
    m_pane.SetInfoLink(L"threat", L"threat");
    m_pane.SetInfoText(1, L"cut...", L"cut no more");
    m_pane.SetInfoText(3, L"last", {});
    m_pane.SetInfoText(4, L"hidden", {});
    EXPECT_TRUE(m_pane.HasValues());
    EXPECT_EQ(m_pane.AllText(), L"Row 0: threat\r\nRow 1: cut no more\r\nRow 2: \r\nRow 3: last\r\n");
    m_pane.SetInfoText(0, L"no link", {});
    EXPECT_TRUE(m_pane.AllText().starts_with(L"Row 0: no link\r\n"));
}

TEST_F(DetailPaneTest, TheCopyOfAValueIsWhatIsSelectedOrAllOfWhatHasTheKeyboard)
{
    m_pane.SetKind(LinkKind);
    m_pane.SetInfoLink(L"threat", {});
    m_pane.SetInfoText(1, L"cut...", L"cut no more");
    m_pane.ShowWholeText(L"opened");
    EXPECT_EQ(m_pane.TextToCopy(), L"") << "nothing has it";

    const struct
    {
        UINT control;
        std::wstring all;
        std::wstring part; // from the second to the fourth character
    } cases[] = {
        {IDC_INFO_VALUE_0_LINK, L"threat", L"threat"}, // a link is copied as a whole
        {IDC_INFO_VALUE_1, L"cut no more", L"ut "},
        {IDC_INFO_VALUE_2_WHOLE, L"opened", L"pen"},
        {IDC_INFO_VALUE_3, L"", L""},
    };

    for (const auto& each : cases)
    {
        CWindow value = m_window.Item(each.control);
        value.SetFocus();
        EXPECT_TRUE(m_pane.IsValue(value)) << each.control;
        EXPECT_EQ(m_pane.TextToCopy(), each.all) << each.control;
        value.SendMessage(EM_SETSEL, 1, 4);
        EXPECT_EQ(m_pane.TextToCopy(), each.part) << each.control;
    }
    EXPECT_FALSE(m_pane.IsValue(m_window.Item(IDC_INFO_LABEL_1)));
    EXPECT_FALSE(m_pane.IsValue(nullptr));
}

TEST_F(DetailPaneTest, ARuleCanBeMadeWhileTheButtonOfAKindThatHasRulesIsShownAndEnabled)
{
    constexpr LogKind ruleKind{.hasAllowRule = true};
    m_pane.ShowAllowRule(true);
    EXPECT_FALSE(m_pane.HasAllowRule()) << "there is no log";
    m_pane.SetKind(ruleKind);
    EXPECT_TRUE(m_pane.HasAllowRule());
    EXPECT_TRUE(m_pane.CanAllow());
    m_pane.DisableAllow();
    EXPECT_FALSE(m_pane.CanAllow());
    m_pane.ShowAllowRule(false);
    EXPECT_FALSE(m_pane.CanAllow());
    EXPECT_TRUE(m_pane.HasAllowRule());
    m_pane.SetKind(LinkKind);
    EXPECT_FALSE(m_pane.HasAllowRule());
}
