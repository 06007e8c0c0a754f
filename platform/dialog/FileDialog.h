#pragma once

#include <windows.h>

#include <commdlg.h>

#include <string>

// The system's dialog that asks for a file to write.
class CFileDialog
{
public:
    // defaultExtension: without a dot, for a name that has none. flags: those of OPENFILENAMEW, as they stand. filter:
    // pairs of name and pattern with "|" between them and "||" after the last. parent owns the dialog.
    CFileDialog(std::wstring defaultExtension, DWORD flags, std::wstring filter, HWND parent);

    // Shows the dialog, with no name in it. IDOK, or IDCANCEL for a dialog that was closed or could not be shown.
    INT_PTR DoModal();

    // What was chosen by the last DoModal that gave IDOK: the whole path, and the number of the filter, from 1 on.
    const std::wstring& GetPathName() const { return m_strPath; }

    DWORD GetFilterIndex() const { return m_nFilterIndex; }

    // Set before DoModal; the empty text stands for the system's own title and choice of folder.
    std::wstring m_strTitle;
    std::wstring m_strInitialFolder;

private:
    std::wstring m_strDefaultExtension;
    std::wstring m_strFilter; // as the system wants it: a zero in the place of each "|"
    DWORD m_nFlags;
    HWND m_hParent;
    std::wstring m_strPath;
    DWORD m_nFilterIndex = 1;
};
