#pragma once

#include "framework/ui/kestrix/app/page/SearchNote.h"
#include "platform/dialog/FindTextDialog.h"

class CRecordList;
class CShownLog;

// Finds records by their texts: asks for a text, selects the next record that shows it, and says where the search comes
// to an end. The records are asked at each step, so that they may have been sorted or replaced since.
class CRecordFinder
{
public:
    // The list and the log outlive the object.
    CRecordFinder(CRecordList& list, CShownLog& log) : m_list(list), m_log(log) {}

    // Takes the control of the note, in the page's data exchange.
    void DoDataExchange(CDataExchange& exchange) { m_note.DoDataExchange(exchange); }

    void Start() { m_note.Start(); }

    // Opens the dialog that asks for the text.
    void Ask();

    // Goes on in the direction that the user has chosen, or in the other one. Asks for the text when there is none yet.
    void GoOn(bool back);

    // Deals with a message of the dialog to the page; false for every other one.
    bool Take(UINT message, LPARAM lParam);

    // While a modal dialog stands before the form, nothing can be done in this one.
    void Enable(bool enable) { m_dialog.EnableWindow(enable); }

    // Before the records go: what was said of them holds no longer.
    void Forget() { m_note.Clear(); }

    // The tab of the report hides the page, and nobody would see what is found in it: the dialog goes.
    void NotePageShown(bool isShown);

private:
    void PlaceDialog();
    void Find(bool down);
    void Show(int row);

    CRecordList& m_list;
    CShownLog& m_log;
    CSearchNote m_note;
    CFindTextDialog m_dialog;
};
