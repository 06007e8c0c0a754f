#include "platform/dialog/FindTextDialog.h"

#include <dlgs.h>

// The text goes into the dialog's control and is read from there: Wine's dialog itself takes it through a code page.
bool CFindTextDialog::Open(HWND window)
{
    if (m_hWnd != nullptr)
    {
        ::SetActiveWindow(m_hWnd);
        return true;
    }
    m_data = {};
    m_data.lStructSize = sizeof m_data;
    m_data.hwndOwner = window;
    m_data.lpstrFindWhat = m_szText.data();
    m_data.wFindWhatLen = static_cast<WORD>(Room);
    m_data.Flags = (m_request.down ? FR_DOWN : 0) | (m_request.matchCase ? FR_MATCHCASE : 0) |
                   (m_request.wholeWords ? FR_WHOLEWORD : 0);
    return SubclassWindow(::FindTextW(&m_data)) && SetDlgItemText(edt1, m_request.text);
}

CFindTextDialog::Event CFindTextDialog::Take(UINT message, LPARAM lParam)
{
    if (message != m_nMessage || reinterpret_cast<const FINDREPLACEW*>(lParam) != &m_data)
    {
        return Event::None;
    }
    if ((m_data.Flags & FR_DIALOGTERM) != 0)
    {
        return Event::Closes;
    }
    m_request = {.text = GetDlgItemText(edt1),
                 .matchCase = (m_data.Flags & FR_MATCHCASE) != 0,
                 .wholeWords = (m_data.Flags & FR_WHOLEWORD) != 0,
                 .down = (m_data.Flags & FR_DOWN) != 0};
    return Event::FindNext;
}

// All its messages, since it stands outside of the dialog whose loop this is.
BOOL CFindTextDialog::PreTranslateMessage(MSG& message)
{
    return ::IsDialogMessageW(m_hWnd, &message);
}
