#include "tests/ui/gallery/Gallery.h"

#include "resource/resource.h"
#include "tests/support/CommonControls.h"
#include "tests/support/LanguageFile.h"
#include "tests/ui/gallery/SkinResources.h"

#include <algorithm>

namespace
{

constexpr int Margin = 12;
constexpr int CaptionHeight = 16;
constexpr int SmallestColumn = 84; // for the caption

} // namespace

std::vector<GalleryRow> AllGalleryRows()
{
    std::vector<GalleryRow> rows;
    for (const auto family : {&BackgroundRows, &FrameRows, &ButtonRows, &TextRows, &TabRows})
    {
        std::ranges::move(family(), std::back_inserter(rows));
    }
    return rows;
}

CGallery::CGallery(std::vector<GalleryRow> rows) : CBitmapDialog(IDD_SKIN_GALLERY), m_rows(std::move(rows))
{
    RegisterCommonControls();
}

BOOL CGallery::OnInitDialog()
{
    CBitmapDialog::OnInitDialog();
    {
        const LanguageFile language;
        SetBackground(IDB_BACKGROUND);
    }
    RECT all{};
    for (std::size_t row = 0; row < m_rows.size(); ++row)
    {
        m_areas.push_back(Place(row, all.bottom + Margin));
        UnionRect(&all, &all, &m_areas.back());
        all.bottom += CaptionHeight;
    }
    all = {0, 0, all.right + Margin, all.bottom + Margin};
    AdjustWindowRectEx(&all, GetStyle(), FALSE, GetExStyle());
    SetWindowPos(nullptr, all, SWP_NOZORDER | SWP_NOMOVE | SWP_NOACTIVATE);
    return TRUE;
}

RECT CGallery::Place(std::size_t row, int top)
{
    RECT area{Margin, top, Margin, top};
    for (const GalleryItem& item : m_rows[row].items)
    {
        area.bottom = std::max(area.bottom, top + item.size.cy);
    }
    for (const GalleryItem& item : m_rows[row].items)
    {
        const int column = std::max<int>(item.size.cx, SmallestColumn);
        m_windows.push_back(item.make(*this, {area.right, top, area.right + item.size.cx, top + item.size.cy}));
        AddCaption(item.caption, {area.right, area.bottom + 1, area.right + column, area.bottom + CaptionHeight});
        area.right += column + Margin;
    }
    return area;
}

void CGallery::AddCaption(const std::wstring& text, const RECT& place)
{
    auto caption = std::make_unique<CWnd>();
    caption->Create(L"STATIC", text, WS_CHILD | WS_VISIBLE | SS_LEFT | SS_NOPREFIX, place, m_hWnd, -1);
    caption->SetFont(GetFont());
    m_windows.push_back(std::move(caption));
}

Picture CGallery::RowPicture(std::size_t row) const
{
    const RECT window = GetWindowRect();
    RECT area = m_areas.at(row);
    ClientToScreen(area);
    OffsetRect(&area, -window.left, -window.top);
    return PictureOf(m_hWnd).Part(area);
}
