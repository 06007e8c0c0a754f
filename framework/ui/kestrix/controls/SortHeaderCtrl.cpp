#include "framework/ui/kestrix/controls/SortHeaderCtrl.h"

#include "framework/ui/kestrix/controls/StretchBitmap.h"
#include "resource/resource.h"

namespace
{

constexpr SIZE ArrowSize{9, 5}; // in pixels
constexpr COLORREF ArrowMask = RGB(255, 255, 255);
constexpr int NoImage = -1;

} // namespace

void CSortHeaderCtrl::SetArrowImages()
{
    const SIZE size = Scaled(ArrowSize);
    if (m_ArrowImages.GetSafeHandle() == nullptr &&
        m_ArrowImages.Create(size.cx, size.cy, ILC_COLOR24 | ILC_MASK, 2, 0))
    {
        m_nUpImage = AddArrow(m_bmpUp, IDB_ARROW_UP);
        m_nDownImage = AddArrow(m_bmpDown, IDB_ARROW_DOWN);
    }
    SetImageList(m_ArrowImages.GetSafeHandle());
}

int CSortHeaderCtrl::AddArrow(CBitmap& bitmap, UINT id)
{
    COLORMAP blackToGrey{RGB(0, 0, 0), GetSysColor(COLOR_GRAYTEXT)};
    const bool isLoaded =
        bitmap.LoadMappedBitmap(ArtOf(id).number, blackToGrey) && FitBitmap(bitmap, Scaled(ArrowSize));
    return isLoaded ? m_ArrowImages.Add(bitmap, ArrowMask) : NoImage;
}

void CSortHeaderCtrl::SetSortArrow(int column, int ascending)
{
    m_nSortColumn = column;
    m_nAscending = ascending;
    const int count = GetItemCount();
    for (int i = 0; i < count; ++i)
    {
        HDITEMW item{};
        item.mask = HDI_FORMAT | HDI_IMAGE;
        GetItem(i, item);
        item.fmt &= HDF_JUSTIFYMASK;
        item.fmt |= HDF_STRING | HDF_BITMAP_ON_RIGHT;
        item.iImage = NoImage;
        if (i == m_nSortColumn)
        {
            item.fmt |= HDF_IMAGE;
            item.iImage = m_nAscending == 1 ? m_nUpImage : m_nDownImage;
        }
        SetItem(i, item);
    }
    Invalidate();
}
