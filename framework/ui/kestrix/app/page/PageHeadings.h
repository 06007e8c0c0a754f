#pragma once

#include "framework/ui/kestrix/controls/ColorText.h"

#include <array>

struct CDataExchange;

// The page's headings; the frame of the detail pane is one without text and ground.
class CPageHeadings
{
public:
    // Takes the controls of the page, in the page's data exchange.
    void DoDataExchange(CDataExchange& exchange);

    // Gives them their texts and their look.
    void Start();

private:
    std::array<CColorText, 4> m_arrHeading; // in the order of the table of headings
};
