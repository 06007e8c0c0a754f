#include "platform/dialog/IconResource.h"

#include "resource/resource.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/LiveHandles.h"

#include <gtest/gtest.h>

namespace
{

// The pixels of an icon or cursor.
SIZE SizeOf(HICON icon)
{
    ICONINFO info{};
    EXPECT_TRUE(GetIconInfo(icon, &info));
    const UniqueBitmap mask(info.hbmMask);
    const UniqueBitmap colour(info.hbmColor);
    BITMAP bitmap{};
    GetObjectW(mask.get(), sizeof bitmap, &bitmap);
    // Without colours the mask holds both pictures, one above the other.
    return {bitmap.bmWidth, colour ? bitmap.bmHeight : bitmap.bmHeight / 2};
}

} // namespace

TEST(IconResourceTest, AnIconHasTheSizeThatIsAskedFor)
{
    const LanguageFile language;
    for (const int size : {16, 32})
    {
        const UniqueIcon icon = LoadIconImage(IDI_KESTRIX, {size, size});
        ASSERT_TRUE(icon);
        EXPECT_EQ(SizeOf(icon.get()).cx, size);
        EXPECT_EQ(SizeOf(icon.get()).cy, size);
    }
}

TEST(IconResourceTest, ACursorHasTheSizeOfTheSystems)
{
    const LanguageFile language;
    const UniqueCursor cursor = LoadCursorImage(IDC_HAND_CURSOR);
    ASSERT_TRUE(cursor);
    EXPECT_EQ(SizeOf(cursor.get()).cx, GetSystemMetrics(SM_CXCURSOR));
}

TEST(IconResourceTest, EveryLoadGivesACopyThatItsOwnerDeletes)
{
    const LanguageFile language;
    const long icons = LiveHandles::Of(HandleKind::Icon);
    const long cursors = LiveHandles::Of(HandleKind::Cursor);
    {
        const UniqueIcon first = LoadIconImage(IDI_KESTRIX, {16, 16});
        const UniqueIcon second = LoadIconImage(IDI_KESTRIX, {16, 16});
        const UniqueCursor cursor = LoadCursorImage(IDC_HAND_CURSOR);
        EXPECT_NE(first.get(), second.get());
        EXPECT_EQ(LiveHandles::Of(HandleKind::Icon), icons + 2);
        EXPECT_EQ(LiveHandles::Of(HandleKind::Cursor), cursors + 1);
    }
    EXPECT_EQ(LiveHandles::Of(HandleKind::Icon), icons);
    EXPECT_EQ(LiveHandles::Of(HandleKind::Cursor), cursors);
}

TEST(IconResourceTest, AMissingImageIsNone)
{
    const LanguageFile language;
    EXPECT_FALSE(LoadIconImage(9999, {16, 16}));
    EXPECT_FALSE(LoadCursorImage(9999));
}
