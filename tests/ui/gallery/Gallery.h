#pragma once

#include "framework/ui/kestrix/controls/BitmapDialog.h"
#include "tests/support/Picture.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

// One state of a control. make puts it at this place in the client area of the gallery's window and gives its object,
// which owns the window; what it needs of the language file it takes from a LanguageFile of its own.
struct GalleryItem
{
    std::wstring caption;
    SIZE size;
    std::function<std::unique_ptr<CWnd>(CWnd& gallery, const RECT& place)> make;
};

// One control or part in all its states, side by side.
struct GalleryRow
{
    std::string name; // that of its kept picture
    std::vector<GalleryItem> items;
};

// The rows of one family of controls; each family has a source file of this folder, and a line in AllGalleryRows.
std::vector<GalleryRow> BackgroundRows();
std::vector<GalleryRow> FrameRows();
std::vector<GalleryRow> ButtonRows();
std::vector<GalleryRow> TextRows();
std::vector<GalleryRow> TabRows();

std::vector<GalleryRow> AllGalleryRows();

// A window that shows every control in every state, on the background of the viewer's dialogs: to look at with
// gallery.exe, and for pictures.
class CGallery : public CBitmapDialog
{
public:
    explicit CGallery(std::vector<GalleryRow> rows);

    BOOL OnInitDialog() override;

    std::size_t RowCount() const { return m_rows.size(); }

    const std::string& RowName(std::size_t row) const { return m_rows[row].name; }

    // The row without its captions, whose letters are no part of the skin.
    Picture RowPicture(std::size_t row) const;

private:
    RECT Place(std::size_t row, int top); // all of a row's items; gives their area
    void AddCaption(const std::wstring& text, const RECT& place);

    std::vector<GalleryRow> m_rows;
    std::vector<RECT> m_areas;
    std::vector<std::unique_ptr<CWnd>> m_windows;
};
