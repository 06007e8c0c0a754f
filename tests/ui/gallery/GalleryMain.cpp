// Shows the gallery until it is closed: cd build/release/bin && ../../../tools/wine gallery.exe

#include "tests/ui/gallery/Gallery.h"

int wmain()
{
    CGallery gallery(AllGalleryRows());
    return gallery.DoModal() == IDCANCEL ? 0 : 1;
}
