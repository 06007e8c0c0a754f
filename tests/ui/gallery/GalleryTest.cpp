#include "tests/ui/gallery/Gallery.h"
#include "tests/ui/gallery/SkinResources.h"

#include <gtest/gtest.h>

TEST(Gallery, EveryRowLooksAsItsKeptPicture)
{
    CGallery gallery(AllGalleryRows());
    ASSERT_TRUE(gallery.Create(IDD_SKIN_GALLERY));
    ASSERT_LT(0u, gallery.RowCount());
    for (std::size_t row = 0; row < gallery.RowCount(); ++row)
    {
        EXPECT_PICTURE(gallery.RowPicture(row), gallery.RowName(row));
    }
}
