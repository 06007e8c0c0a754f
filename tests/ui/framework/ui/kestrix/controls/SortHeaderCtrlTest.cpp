#include "framework/ui/kestrix/controls/SortHeaderCtrl.h"

#include "platform/dialog/DeviceContext.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/ListWindow.h"
#include "tests/support/StandingScale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <set>
#include <vector>

extern "C" decltype(&::InvalidateRect) __imp_InvalidateRect;
extern "C" decltype(&::SendMessageW) __imp_SendMessageW;

namespace
{

constexpr int NoImage = -1;
constexpr int UpImage = 0;
constexpr int DownImage = 1;
constexpr COLORREF Background = RGB(0, 128, 255);
constexpr int ArrowWidth = 9;
constexpr int ArrowHeight = 5;

// What one arrow of the list looks like on a background, by rows.
class ArrowPicture
{
public:
    ArrowPicture(HIMAGELIST images, int image)
    {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, ArrowWidth, -ArrowHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        const UniqueMemoryDC dc(CreateCompatibleDC(nullptr));
        const UniqueBitmap bitmap(CreateDIBSection(dc.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        const HGDIOBJ before = SelectObject(dc.get(), bitmap.get());
        const UniqueBrush brush(CreateSolidBrush(Background));
        const RECT all{0, 0, ArrowWidth, ArrowHeight};
        FillRect(dc.get(), &all, brush.get());
        ImageList_Draw(images, image, dc.get(), 0, 0, ILD_NORMAL);
        for (int y = 0; y < ArrowHeight; ++y)
        {
            for (int x = 0; x < ArrowWidth; ++x)
            {
                const COLORREF pixel = GetPixel(dc.get(), x, y);
                m_colours.insert(pixel);
                m_widths[static_cast<std::size_t>(y)] += pixel != Background;
            }
        }
        SelectObject(dc.get(), before);
    }

    std::set<COLORREF> m_colours;
    std::array<int, ArrowHeight> m_widths{}; // drawn pixels of each row
};

// Listens to what headers are told about their columns.
class ItemListener
{
public:
    ItemListener() : m_patch(__imp_SendMessageW, &Listen)
    {
        s_images.clear();
        s_original = m_patch.Original();
    }

    // The image of each item that was set.
    static const std::vector<int>& Images() { return s_images; }

private:
    static LRESULT WINAPI Listen(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == HDM_SETITEMW)
        {
            s_images.push_back(reinterpret_cast<const HDITEMW*>(lParam)->iImage);
        }
        return s_original(window, message, wParam, lParam);
    }

    static inline std::vector<int> s_images;
    static inline decltype(&::SendMessageW) s_original = nullptr;

    ImportPatch<decltype(&::SendMessageW)> m_patch;
};

class SortHeaderCtrlTest : public ::testing::Test
{
protected:
    SortHeaderCtrlTest() : m_header(m_window.m_list.SortHeader())
    {
        m_window.m_list.InsertColumn(0, L"left", LVCFMT_LEFT, 100);
        m_window.m_list.InsertColumn(1, L"right", LVCFMT_RIGHT, 100);
        m_window.m_list.InsertColumn(2, L"centre", LVCFMT_CENTER, 100);
    }

    HDITEMW Item(int column) const
    {
        HDITEMW item{};
        item.mask = HDI_FORMAT | HDI_IMAGE;
        EXPECT_TRUE(m_header.GetItem(column, item));
        return item;
    }

    // The column's format without its alignment.
    int Flags(int column) const { return Item(column).fmt & ~HDF_JUSTIFYMASK; }

    int Alignment(int column) const { return Item(column).fmt & HDF_JUSTIFYMASK; }

    // The image that each column shows.
    std::vector<int> Images() const
    {
        std::vector<int> images;
        for (int column = 0; column < 3; ++column)
        {
            const HDITEMW item = Item(column);
            images.push_back((item.fmt & HDF_IMAGE) != 0 ? item.iImage : NoImage);
        }
        return images;
    }

    std::unique_ptr<LanguageFile> m_language = std::make_unique<LanguageFile>();
    ListWindow m_window;
    CSortHeaderCtrl& m_header;
};

} // namespace

TEST_F(SortHeaderCtrlTest, TheArrowStandsOnTheSortedColumnAlone)
{
    m_header.SetArrowImages();
    m_header.SetSortArrow(1, 1);
    EXPECT_EQ(Images(), (std::vector<int>{NoImage, UpImage, NoImage}));
    EXPECT_EQ(Flags(1), 22528);
    EXPECT_EQ(Flags(0), 20480);
    EXPECT_EQ(Flags(2), 20480);
}

TEST_F(SortHeaderCtrlTest, AscendingIs1AndAnyOtherValueIsDown)
{
    m_header.SetArrowImages();
    for (const int ascending : {0, 2, -1})
    {
        m_header.SetSortArrow(0, ascending);
        EXPECT_EQ(Images(), (std::vector<int>{DownImage, NoImage, NoImage})) << ascending;
    }
    m_header.SetSortArrow(0, 1);
    EXPECT_EQ(Images(), (std::vector<int>{UpImage, NoImage, NoImage}));
}

TEST_F(SortHeaderCtrlTest, ARightAlignedColumnKeepsItsAlignmentWhenTheArrowMovesAwayFromIt)
{
    m_header.SetArrowImages();
    ASSERT_EQ(Alignment(1), HDF_RIGHT);
    m_header.SetSortArrow(1, 1);
    EXPECT_EQ(Alignment(1), HDF_RIGHT);
    m_header.SetSortArrow(0, 1);
    EXPECT_EQ(Alignment(1), HDF_RIGHT);
    EXPECT_EQ(Alignment(0), HDF_LEFT);
    EXPECT_EQ(Alignment(2), HDF_CENTER);
    EXPECT_EQ(Images(), (std::vector<int>{UpImage, NoImage, NoImage}));
}

TEST_F(SortHeaderCtrlTest, AColumnOfMinus1OrPastTheEndClearsAllArrows)
{
    m_header.SetArrowImages();
    for (const int none : {-1, 3, 1000})
    {
        m_header.SetSortArrow(2, 0);
        ASSERT_EQ(Images(), (std::vector<int>{NoImage, NoImage, DownImage}));
        m_header.SetSortArrow(none, 1);
        EXPECT_EQ(Images(), (std::vector<int>{NoImage, NoImage, NoImage})) << none;
        EXPECT_EQ(Flags(2), 20480) << none;
    }
}

// Asking the header would not do: it takes image -1 for one that its owner knows, and asks there.
TEST_F(SortHeaderCtrlTest, EveryOtherColumnGetsImageMinus1)
{
    m_header.SetArrowImages();
    const ItemListener listener;
    m_header.SetSortArrow(1, 0);
    EXPECT_EQ(listener.Images(), (std::vector<int>{-1, DownImage, -1}));
}

// Asked of the call itself, since a header may paint itself anew for each item that is set.
TEST_F(SortHeaderCtrlTest, SettingTheArrowPaintsTheWholeHeaderAnewWithItsBackground)
{
    static std::vector<HWND> s_windows;
    ShowWindow(GetAncestor(m_header, GA_ROOT), SW_SHOWNA); // a hidden window is painted when it is shown
    s_windows.clear();
    const ImportPatch<decltype(&::InvalidateRect)> patch(__imp_InvalidateRect,
                                                         [](HWND window, const RECT* rect, BOOL erase) -> BOOL
                                                         {
                                                             if (rect == nullptr && erase)
                                                             {
                                                                 s_windows.push_back(window);
                                                             }
                                                             return TRUE;
                                                         });
    m_header.SetSortArrow(0, 1);
    EXPECT_EQ(s_windows, std::vector<HWND>{m_header});
}

TEST_F(SortHeaderCtrlTest, TheArrowImagesAreTwoOf9By5Pixels)
{
    m_header.SetArrowImages();
    const HIMAGELIST images = m_header.GetImageList();
    ASSERT_NE(images, nullptr);
    EXPECT_EQ(ImageList_GetImageCount(images), 2);
    int width = 0;
    int height = 0;
    ASSERT_TRUE(ImageList_GetIconSize(images, &width, &height));
    EXPECT_EQ(width, ArrowWidth);
    EXPECT_EQ(height, ArrowHeight);
}

TEST_F(SortHeaderCtrlTest, TheArrowImagesGrowWithTheScaleOfTheScreen)
{
    for (const auto& [dpi, size] : {std::pair{120, SIZE{11, 6}}, {144, SIZE{14, 8}}, {168, SIZE{16, 9}}})
    {
        SCOPED_TRACE(dpi);
        const StandingScale scale(dpi);
        ListWindow window;
        CSortHeaderCtrl& header = window.m_list.SortHeader();
        header.SetArrowImages();
        EXPECT_EQ(ImageList_GetImageCount(header.GetImageList()), 2);
        int width = 0;
        int height = 0;
        ASSERT_TRUE(ImageList_GetIconSize(header.GetImageList(), &width, &height));
        EXPECT_EQ(width, size.cx);
        EXPECT_EQ(height, size.cy);
    }
}

TEST_F(SortHeaderCtrlTest, TheArrowsAreDrawnInTheColourOfGreyTextOnWhateverIsBehindThem)
{
    m_header.SetArrowImages();
    const std::set<COLORREF> expected{Background, GetSysColor(COLOR_GRAYTEXT)};
    const ArrowPicture up(m_header.GetImageList(), UpImage);
    const ArrowPicture down(m_header.GetImageList(), DownImage);
    EXPECT_EQ(up.m_colours, expected);
    EXPECT_EQ(down.m_colours, expected);
    EXPECT_TRUE(std::ranges::is_sorted(up.m_widths)) << "an up arrow widens downwards";
    EXPECT_TRUE(std::ranges::is_sorted(down.m_widths, std::greater())) << "a down arrow narrows downwards";
    EXPECT_NE(up.m_widths, down.m_widths);
}

TEST_F(SortHeaderCtrlTest, ASecondSetArrowImagesDoesNotLoadTheBitmapsAgainAndHandsTheSameImageListOver)
{
    m_header.SetArrowImages();
    const HIMAGELIST images = m_header.GetImageList();
    m_language.reset(); // nothing can be loaded any longer
    m_header.SetImageList(nullptr);
    m_header.SetArrowImages();
    EXPECT_EQ(m_header.GetImageList(), images);
    EXPECT_EQ(ImageList_GetImageCount(images), 2);
    m_header.SetSortArrow(0, 0);
    EXPECT_EQ(Images(), (std::vector<int>{DownImage, NoImage, NoImage}));
}

TEST_F(SortHeaderCtrlTest, WithoutTheBitmapsTheHeaderGetsAnEmptyListAndNoArrows)
{
    m_language.reset();
    m_header.SetArrowImages();
    ASSERT_NE(m_header.GetImageList(), nullptr);
    EXPECT_EQ(ImageList_GetImageCount(m_header.GetImageList()), 0);
    const ItemListener listener;
    m_header.SetSortArrow(0, 1);
    EXPECT_EQ(listener.Images(), (std::vector<int>{NoImage, NoImage, NoImage}));
}
