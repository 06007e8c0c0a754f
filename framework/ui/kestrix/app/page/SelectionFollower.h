#pragma once

#include "platform/dialog/Window.h"

#include <commctrl.h>

class CShownLog;

// Has the detail pane follow the selection of the list, by whatever means the user moves it: a key, a typed text, a
// search, an assistive program. A click and the arrow keys Up and Down show their record themselves, when button and
// key are let go, so that nothing is shown twice.
class CSelectionFollower
{
public:
    // The message that follows changes of the selection, however many they are. The page hands it to Follow.
    static constexpr UINT Message = WM_APP + 1;

    // The list and the log outlive the object.
    CSelectionFollower(const CWindow& list, CShownLog& log) : m_list(list), m_log(log) {}

    CSelectionFollower(const CSelectionFollower&) = delete;
    CSelectionFollower& operator=(const CSelectionFollower&) = delete;

    // What the page's loop is about to dispatch.
    void NoteInput(const MSG& message);

    // A click or an arrow key is over: shows the selected record.
    void ShowNow();

    // A change of a row.
    void NoteChange(const NMLISTVIEW& change);

    // Shows the selected record, unless the pane shows it already or a click or an arrow key is about to. Returns 0.
    LRESULT Follow();

private:
    void PostFollow();

    const CWindow& m_list;
    CShownLog& m_log;
    bool m_bPosted = false;
    bool m_bHeld = false; // the button or an arrow key is down in the list
};
