#pragma once

#include <cstddef>
#include <string>

// The page as a log object sees it: the rows of its detail pane, each a caption and a value.
class CLogInfoPage
{
public:
    static constexpr std::size_t InfoRows = 7;

    // Sets the caption of a row, clears its value, and shows or hides both. The row is below InfoRows.
    virtual void SetInfoRow(std::size_t row, const std::wstring& caption, bool visible) = 0;

    // Sets the value of a row and its tool tip; an empty tip takes away the one that was there. The first row shows the
    // text in place of its link.
    virtual void SetInfoText(std::size_t row, const std::wstring& text, const std::wstring& toolTip) = 0;

    // The same for the first row, which shows the text as a link.
    virtual void SetInfoLink(const std::wstring& text, const std::wstring& toolTip) = 0;

    // Draws the text once onto the value of a row, in one line that ends in dots where it does not fit, and sets its
    // tool tip.
    virtual void DrawInfoText(std::size_t row, const std::wstring& text, const std::wstring& toolTip) = 0;

    // Draws the text once onto the first value, wrapped at words in its rectangle made higher by so many pixels, and
    // sets it.
    virtual void DrawTallInfo(const std::wstring& text, int pixels) = 0;

    // Shows or hides the button that allows the record's program, with its caption; shown it is enabled.
    virtual void ShowAllowRule(bool show) = 0;

    // Takes away the values of all rows with their tool tips, and hides that button: nothing is shown of any record.
    virtual void ClearValues() = 0;

protected:
    ~CLogInfoPage() = default;
};
