#pragma once

#include "framework/ui/kestrix/controls/ColorText.h"

#include <string>

// The place in the heading of the records where a search says how it ended: without a box, and for screen readers too.
class CSearchNote : public CColorText
{
public:
    // Takes the control of the page, in the page's data exchange.
    void DoDataExchange(CDataExchange& exchange);

    // Gives it its look.
    void Start();

    // Shows the text in place of the one that is there, and has a screen reader read it even when it is the same.
    void Tell(const std::wstring& text);

    void Clear();
};
