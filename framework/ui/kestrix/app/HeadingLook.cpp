#include "framework/ui/kestrix/app/HeadingLook.h"

#include "framework/ui/kestrix/controls/FontStyle.h"
#include "resource/resource.h"

CColorText::FontLook HeadingLook()
{
    CColorText::FontLook look;
    bool bold = false;
    CFontStyle().GetFontStyle(bold, look.italic, look.height);
    look.weight = bold ? FW_BOLD : FW_NORMAL;
    look.faceName = LoadText(IDS_HEADING_FACE);
    return look;
}
