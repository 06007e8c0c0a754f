#include "framework/ui/kestrix/app/page/PageHeadings.h"

#include "framework/ui/kestrix/app/HeadingLook.h"
#include "framework/ui/kestrix/controls/SkinColours.h"
#include "platform/dialog/DialogFramework.h"
#include "resource/resource.h"

#include <iterator>

namespace
{

struct Heading
{
    UINT control;
    UINT text;
    COLORREF ground;
    COLORREF frame;
};

constexpr UINT NoText = 0;

constexpr Heading Headings[] = {
    {IDC_HEADING_ENTRIES, IDS_HEADING_ENTRIES, SkinColour::ListHeading, 0xAC8473},
    {IDC_HEADING_DATES, IDS_HEADING_DATES, SkinColour::ListHeading, 0xAC8473},
    {IDC_HEADING_DETAILS, IDS_HEADING_DETAILS, SkinColour::DetailHeading, 0xDAC9C0},
    {IDC_DETAIL_FRAME, NoText, CColorText::NoColour, 0xDAC9C0},
};

} // namespace

void CPageHeadings::DoDataExchange(CDataExchange& exchange)
{
    for (std::size_t i = 0; i < std::size(Headings); ++i)
    {
        DDX_Control(exchange, static_cast<int>(Headings[i].control), m_arrHeading[i]);
    }
}

void CPageHeadings::Start()
{
    CColorText::FontLook look = HeadingLook();
    look.weight = FW_BOLD;
    for (std::size_t i = 0; i < std::size(Headings); ++i)
    {
        const Heading& heading = Headings[i];
        CColorText& label = m_arrHeading[i];
        label.SetFontLook(look);
        label.SetBackground(heading.ground, heading.ground != CColorText::NoColour);
        label.SetFrame(heading.frame, true);
        label.SetAlignment(CColorText::Horizontal::Left, CColorText::Vertical::Centre);
        if (heading.text != NoText)
        {
            label.SetText(LoadText(heading.text));
        }
    }
}
