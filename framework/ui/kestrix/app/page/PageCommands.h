#pragma once

#include <windows.h>

#include <functional>
#include <string>

class CDetailPane;
class CRecordFinder;
class CRecordList;
class CShownLog;

// What the keys and the context menus of the page do.
enum class PageCommand
{
    CopyEntry,             // the selected record, as an export of its log writes it
    CopyEntryWithHeadings, // the same below the line of labels
    CopyValue,             // what is selected in the value of the detail pane that has the keyboard
    CopyDetails,           // the captions and values of the detail pane
    Find,                  // asks for a text and finds the records that show it
    FindNext,              // the next of them in the direction that the user has chosen
    FindPrevious,          // in the other direction
    AllowProgram,          // what the button of the detail pane does
};

// A part of the page that has keys and a menu of its own.
enum class PagePlace
{
    Entries,
    Details,
    Elsewhere,
};

// Does the commands of the page, or says why not.
class CPageCommands
{
public:
    // What the commands are about, which outlives the object, and what the button does that allows a program.
    CPageCommands(CShownLog& log, CRecordList& list, CDetailPane& details, CRecordFinder& finder,
                  std::function<void()> allow);

    CPageCommands(const CPageCommands&) = delete;
    CPageCommands& operator=(const CPageCommands&) = delete;

    // The part of the page to which the window belongs.
    PagePlace PlaceOf(HWND window) const;

    // Whether the log that is shown knows the command at all.
    bool IsOffered(PageCommand command) const;

    // Whether there is something that it can be done with now.
    bool CanRun(PageCommand command) const;

    // Does what can be done now. A clipboard that cannot be had is told to the user.
    void Run(PageCommand command);

private:
    struct Row;

    static const Row Rows[];
    static const Row& RowOf(PageCommand command);

    bool Always() const { return true; }

    bool HasEntry() const;
    bool HasDetails() const;
    bool HasValue() const;
    bool CanAllow() const;
    void CopyEntry();
    void CopyEntryWithHeadings();
    void CopyValue();
    void CopyDetails();
    void Find();
    void FindNext();
    void FindPrevious();
    void AllowProgram();
    void Copy(const std::wstring& text) const;

    CShownLog& m_log;
    CRecordList& m_list;
    CDetailPane& m_details;
    CRecordFinder& m_finder;
    const std::function<void()> m_allow;
};
