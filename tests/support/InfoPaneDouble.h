#pragma once

#include "framework/ui/kestrix/logs/LogInfoPage.h"

#include <array>
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
        bool isLink = false; // the text was set as a link
        bool isSet = false;  // a text was set since the caption

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

    const Row& operator[](std::size_t row) const { return m_arrRow.at(row); }

    bool IsUntouched() const { return m_arrRow == std::array<Row, InfoRows>{}; }

private:
    void Set(std::size_t number, const std::wstring& text, const std::wstring& toolTip, bool isLink)
    {
        Row& row = m_arrRow.at(number);
        row.text = text;
        row.toolTip = toolTip;
        row.isLink = isLink;
        row.isSet = true;
    }

    std::array<Row, InfoRows> m_arrRow;
};
