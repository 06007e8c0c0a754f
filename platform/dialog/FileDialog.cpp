#include "platform/dialog/FileDialog.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace
{

// The most characters that a path has on this system, its terminator included.
constexpr DWORD LongestPath = 32768;

const wchar_t* OrNull(const std::wstring& text)
{
    return text.empty() ? nullptr : text.c_str();
}

} // namespace

CFileDialog::CFileDialog(std::wstring defaultExtension, DWORD flags, std::wstring filter, HWND parent)
    : m_strDefaultExtension(std::move(defaultExtension)),
      m_strFilter(std::move(filter)),
      m_nFlags(flags),
      m_hParent(parent)
{
    std::ranges::replace(m_strFilter, L'|', L'\0');
}

INT_PTR CFileDialog::DoModal()
{
    std::vector<wchar_t> path(LongestPath);
    OPENFILENAMEW choice{};
    choice.lStructSize = sizeof choice;
    choice.hwndOwner = m_hParent;
    choice.lpstrFilter = OrNull(m_strFilter);
    choice.nFilterIndex = m_nFilterIndex;
    choice.lpstrFile = path.data();
    choice.nMaxFile = LongestPath;
    choice.lpstrInitialDir = OrNull(m_strInitialFolder);
    choice.lpstrTitle = OrNull(m_strTitle);
    choice.Flags = m_nFlags;
    choice.lpstrDefExt = OrNull(m_strDefaultExtension);
    if (!::GetSaveFileNameW(&choice))
    {
        return IDCANCEL;
    }
    m_strPath = path.data();
    m_nFilterIndex = choice.nFilterIndex;
    return IDOK;
}
