#include "framework/ui/kestrix/controls/SkinFrame.h"
#include "resource/resource.h"
#include "tests/support/LanguageFile.h"
#include "tests/ui/gallery/Gallery.h"
#include "tests/ui/gallery/SkinDialog.h"

namespace
{

// A page in the skin frame and in its shape.
class CFramedPage : public CSkinDialog
{
public:
    CFramedPage(SIZE size, FrameTop frameTop, CWnd& gallery) : CSkinDialog(size, &gallery), m_frameTop(frameTop)
    {
        const LanguageFile language;
        SetBackground(IDB_BACKGROUND);
        ShapeCorners();
    }

protected:
    static const MessageMap& Map()
    {
        static constexpr auto rows = MessageRows(On::Message<WM_PAINT, &CFramedPage::OnPaint>);
        static constexpr MessageMap map{rows, &CSkinDialog::Map};
        return map;
    }

    const MessageMap& GetMessageMap() const override { return Map(); }

private:
    void OnPaint()
    {
        const LanguageFile language;
        const CPaintDC dc(m_hWnd);
        const RECT client = GetClientRect();
        DrawSkinFrame(dc, {client.right, client.bottom}, m_frameTop);
    }

    const FrameTop m_frameTop;
};

GalleryItem Frame(const std::wstring& caption, SIZE size, FrameTop frameTop)
{
    return {caption, size,
            [size, frameTop](CWnd& gallery, const RECT& place)
            {
                auto page = std::make_unique<CFramedPage>(size, frameTop, gallery);
                page->SetWindowPos(nullptr, place, SWP_NOZORDER | SWP_SHOWWINDOW);
                return page;
            }};
}

} // namespace

std::vector<GalleryRow> FrameRows()
{
    return {
        {"frames",
         {Frame(L"form", {180, 110}, FrameTop::Stretched), Frame(L"narrow", {84, 110}, FrameTop::Stretched),
          Frame(L"small dialog", {180, 110}, FrameTop::Cut)}},
    };
}
