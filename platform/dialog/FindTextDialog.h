#pragma once

#include "platform/dialog/Wnd.h"

#include <commdlg.h>

#include <array>
#include <string>

// What is looked for.
struct FindRequest
{
    std::wstring text;
    bool matchCase = false;
    bool wholeWords = false;
    bool down = true;
};

// The system's dialog that asks for a text to look for. It stands beside the window that asks until the user closes it,
// and tells that window of each press of its button. It takes its keys in the message loop of the window's dialog.
class CFindTextDialog : public CWnd
{
public:
    enum class Event
    {
        None, // the message is another
        FindNext,
        Closes,
    };

    CFindTextDialog() = default;

    ~CFindTextDialog() override { Close(); }

    // Shows the dialog with what was looked for last, or brings the one that stands there to the front. The dialog
    // belongs to the top-level window of this one, which gets the messages. False when it cannot be shown.
    bool Open(HWND window);

    void Close() { DestroyWindow(); }

    // What a message tells that the window has got; Request is up to date then.
    Event Take(UINT message, LPARAM lParam);

    // What the user looks for, also when the dialog has gone. No text: nothing was looked for yet.
    const FindRequest& Request() const { return m_request; }

    BOOL PreTranslateMessage(MSG& message) override;

private:
    static constexpr std::size_t Room = 256; // for the text, with its terminator

    const UINT m_nMessage = ::RegisterWindowMessageW(FINDMSGSTRINGW);
    FindRequest m_request;
    FINDREPLACEW m_data{};                // the dialog writes into these two as long as it stands
    std::array<wchar_t, Room> m_szText{}; // and ours is read from its control
};
