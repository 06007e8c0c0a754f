#pragma once

#include "framework/ui/kestrix/app/page/DetailPane.h"
#include "framework/ui/kestrix/logs/LogKinds.h"
#include "resource/resource.h"
#include "tests/ui/framework/ui/kestrix/app/page/PartWindow.h"

#include <gtest/gtest.h>

// The detail pane of a plain window.
class DetailPaneTest : public ::testing::Test
{
protected:
    static constexpr RECT FirstPlace{10, 20, 210, 35};
    static constexpr int Width = 200;
    static constexpr int Height = 15;

    static constexpr LogKind LinkKind{.firstInfo = FirstInfo::Link, .hasWholeInfo = true};
    static constexpr LogKind TextKind{.firstInfo = FirstInfo::Text};
    static constexpr LogKind TextOnlyKind{.firstInfo = FirstInfo::TextOnly};
    static constexpr LogKind TallKind{.firstInfo = FirstInfo::TallText};

    DetailPaneTest()
    {
        for (const UINT text : {IDC_INFO_LABEL_0, IDC_INFO_LABEL_1, IDC_INFO_LABEL_2, IDC_INFO_LABEL_3,
                                IDC_INFO_LABEL_4, IDC_INFO_LABEL_5, IDC_INFO_LABEL_6, IDC_ALLOW_LABEL})
        {
            m_window.Add(WC_STATICW, text);
        }
        m_window.Add(WC_STATICW, IDC_INFO_VALUE_0_LINK, SS_NOTIFY | WS_DISABLED, FirstPlace);
        m_window.Add(WC_EDITW, IDC_INFO_VALUE_0_TEXT, ES_READONLY | ES_MULTILINE, FirstPlace);
        for (const UINT value : {IDC_INFO_VALUE_1, IDC_INFO_VALUE_2, IDC_INFO_VALUE_3, IDC_INFO_VALUE_4,
                                 IDC_INFO_VALUE_5, IDC_INFO_VALUE_6, IDC_INFO_VALUE_2_WHOLE})
        {
            m_window.Add(WC_EDITW, value, ES_READONLY | ES_AUTOHSCROLL);
        }
        m_window.Add(WC_BUTTONW, IDC_ALLOW);
        m_tips.Create(&m_window);
        CDataExchange exchange = m_window.Exchange();
        m_pane.DoDataExchange(exchange);
        m_pane.Start();
    }

    std::wstring TextOf(UINT control) const { return m_window.Item(control).GetWindowText(); }

    std::wstring TipOf(UINT control) const { return m_tips.GetText(m_window.Item(control)); }

    // Which of the two ways of the first value is to be seen.
    bool ShowsLink() const { return m_window.Shows(IDC_INFO_VALUE_0_LINK); }

    bool ShowsText() const { return m_window.Shows(IDC_INFO_VALUE_0_TEXT); }

    // Whether the Tab key comes to a value.
    bool IsTabStop(UINT control) const { return (m_window.Item(control).GetStyle() & WS_TABSTOP) != 0; }

    bool IsLinkEnabled() const { return m_window.Item(IDC_INFO_VALUE_0_LINK).IsWindowEnabled(); }

    void ExpectFirstText(int rows) const
    {
        const RECT place = m_window.PlaceOf(IDC_INFO_VALUE_0_TEXT);
        EXPECT_EQ(place.left, FirstPlace.left);
        EXPECT_EQ(place.top, FirstPlace.top);
        EXPECT_EQ(place.right - place.left, Width);
        EXPECT_EQ(place.bottom - place.top, rows * Height);
    }

    PartWindow m_window;

    // A value paints its text itself when it is due.
    void PaintFirstValue() const { m_window.Item(IDC_INFO_VALUE_0_TEXT).UpdateWindow(); }

    CToolTipCtrl m_tips;
    CDetailPane m_pane{m_tips};
};
