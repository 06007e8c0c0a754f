#pragma once

#include "framework/ui/kestrix/logs/LogInfoPage.h"

#include <array>
#include <optional>
#include <string>

// A detail pane that keeps what a log puts into it.
class InfoPaneDouble : public CLogInfoPage
{
public:
    struct Row
    {
        std::wstring caption;
        std::wstring text;
        std::wstring toolTip;
        bool visible = false;
        bool isLink = false;  // the text was set as a link
        bool isSet = false;   // a text was set since the caption
        bool isDrawn = false; // the text was drawn

        bool operator==(const Row&) const = default;
    };

    void SetInfoRow(std::size_t row, const std::wstring& caption, bool visible) override
    {
        m_arrRow.at(row) = {.caption = caption, .text = {}, .toolTip = {}, .visible = visible};
    }

    void SetInfoText(std::size_t row, const std::wstring& text, const std::wstring& toolTip) override
    {
        Set(row, text, toolTip, false);
    }

    void SetInfoLink(const std::wstring& text, const std::wstring& toolTip) override { Set(0, text, toolTip, true); }

    void DrawInfoText(std::size_t row, const std::wstring& text, const std::wstring& toolTip) override
    {
        Set(row, text, toolTip, false);
        m_arrRow.at(row).isDrawn = true;
    }

    void DrawTallInfo(const std::wstring& text, int pixels) override
    {
        Set(0, text, {}, false);
        m_arrRow.front().isDrawn = true;
        m_nTallPixels = pixels;
    }

    void ShowAllowRule(bool show) override { m_bAllowRule = show; }

    void ClearValues() override
    {
        for (std::size_t row = 0; row < InfoRows; ++row)
        {
            Set(row, {}, {}, false);
        }
        ShowAllowRule(false);
    }

    // By how many pixels the first value was made higher; 0 when it was not.
    int TallPixels() const { return m_nTallPixels; }

    // Whether the button of the allow rule is shown; nothing before it was shown or hidden.
    std::optional<bool> AllowRule() const { return m_bAllowRule; }

    const Row& operator[](std::size_t row) const { return m_arrRow.at(row); }

    bool IsUntouched() const { return m_arrRow == std::array<Row, InfoRows>{} && !m_bAllowRule; }

private:
    void Set(std::size_t number, const std::wstring& text, const std::wstring& toolTip, bool isLink)
    {
        Row& row = m_arrRow.at(number);
        row.text = text;
        row.toolTip = toolTip;
        row.isLink = isLink;
        row.isDrawn = false;
        row.isSet = true;
    }

    std::array<Row, InfoRows> m_arrRow;
    int m_nTallPixels = 0;
    std::optional<bool> m_bAllowRule;
};
