#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

// The page as a log object sees it: the rows of its detail pane. Controls are addressed by their numbers; a number
// that the page does not have is ignored.
class CLogInfoPage
{
public:
    // The rows of the pane, each a caption and a value.
    static constexpr std::size_t InfoRows = 7;

    // Sets the caption of a row, clears its value, and shows or hides both. The row is below InfoRows.
    virtual void SetInfoRow(std::size_t row, const std::wstring& caption, bool visible) = 0;

    // Sets the text of a value.
    virtual void SetInfoText(UINT control, const std::wstring& text) = 0;

    // Sets the tool tip of a value; an empty text takes it away.
    virtual void SetInfoToolTip(UINT control, const std::wstring& text) = 0;

    virtual void ShowInfo(UINT control, bool show) = 0;

protected:
    ~CLogInfoPage() = default;
};
