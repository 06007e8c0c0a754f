#include "framework/ui/kestrix/controls/RichColorImageList.h"

bool CRichColorImageList::CreateFromBitmap(UINT bitmapId, int width, COLORREF mask)
{
    CBitmap strip;
    return strip.LoadBitmap(bitmapId) && Create(width, strip.GetSize().cy, ILC_COLOR24 | ILC_MASK, 0, 0) &&
           Add(strip, mask) != -1;
}
