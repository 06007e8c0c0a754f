#include "resource/resource.h"
#include "tests/support/LanguageFile.h"
#include "tests/ui/gallery/Gallery.h"
#include "tests/ui/gallery/SkinDialog.h"

namespace
{

constexpr SIZE PageSize{84, 60};

// A page of the gallery, prepared and shown.
GalleryItem Page(const std::wstring& caption, const std::function<void(CSkinDialog&)>& prepare)
{
    return {caption, PageSize,
            [prepare](CWnd& gallery, const RECT& place)
            {
                auto page = std::make_unique<CSkinDialog>(PageSize, &gallery);
                prepare(*page);
                page->SetWindowPos(nullptr, place, SWP_NOZORDER | SWP_SHOWWINDOW);
                return page;
            }};
}

GalleryItem Mode(const std::wstring& caption, BackgroundMode mode)
{
    return Page(caption, [mode](CSkinDialog& page) { page.SetBackground(IDB_SKIN_PICTURE, mode); });
}

GalleryItem Image(const std::wstring& caption, std::size_t image)
{
    return Page(caption,
                [image](CSkinDialog& page)
                {
                    page.SetBackground(IDB_SKIN_PICTURE, BackgroundMode::Stretched);
                    page.SetImage(image, IDB_SKIN_PICTURE, {24 + 12 * static_cast<LONG>(image), 16});
                });
}

} // namespace

std::vector<GalleryRow> BackgroundRows()
{
    return {
        {"background-modes",
         {Mode(L"tiled", BackgroundMode::Tiled), Mode(L"stretched", BackgroundMode::Stretched),
          Mode(L"centred", BackgroundMode::Centred), Mode(L"top right", BackgroundMode::TopRight),
          Mode(L"bottom left", BackgroundMode::BottomLeft), Mode(L"bottom right", BackgroundMode::BottomRight),
          Page(L"none", [](CSkinDialog&) {})}},
        {"further-images",
         {Image(L"image 1", 0), Image(L"image 2", 1), Image(L"image 3", 2), Image(L"image 4", 3),
          Image(L"image 5", 4)}},
    };
}
