#pragma once

#include "platform/dialog/DialogFramework.h"

// An image list of 24-bit images with a mask, for the icons of a list.
class CRichColorImageList : public CImageList
{
public:
    // Fills the list from one bitmap of the language file, a strip of images of the given width in pixels at 96 dots an
    // inch that are as high as the bitmap; mask is the colour of what is not drawn. False, and an empty list, when
    // there is no bitmap.
    bool CreateFromBitmap(UINT bitmapId, int width, COLORREF mask);
};
