#include "framework/ui/kestrix/controls/RichColorImageList.h"

#include "framework/ui/kestrix/controls/StretchBitmap.h"

// The strip is as wide as its images together, however each of them is rounded.
bool CRichColorImageList::CreateFromBitmap(UINT bitmapId, int width, COLORREF mask)
{
    CBitmap strip;
    const ScaledArt art = ArtOf(bitmapId);
    if (!strip.LoadBitmap(art.number))
    {
        return false;
    }
    const SIZE own = strip.GetSize();
    const int images = own.cx * 100 / art.percent / width;
    const SIZE image{Scaled(width), art.SizeOnScreen(own).cy};
    return FitBitmap(strip, {images * image.cx, image.cy}) &&
           Create(image.cx, image.cy, ILC_COLOR24 | ILC_MASK, 0, 0) && Add(strip, mask) != -1;
}
