#pragma once

#include "tests/e2e/Process.h"

#include <cstdint>
#include <string>
#include <vector>

// The command line for a file of a log of this command code.
std::wstring FileCommandLine(int logCode, const std::wstring& path);

// A control of a form or of its page; null when there is none.
HWND FormItem(HWND form, int control);

// Presses the close button of a viewer's form, again when a press is lost since another program came to the front just
// then, and gives the exit code; STILL_ACTIVE when the program does not end.
DWORD CloseForm(const Process& viewer, HWND form);

// The real viewer, seen and driven from outside through its windows.
class Viewer
{
public:
    // Starts the program and waits for its form, which is null when none appears.
    explicit Viewer(const std::wstring& arguments, const std::wstring& program = ProgramFolder() + L"Kestrix.exe");

    HWND Form() const { return m_form; }

    // The same of this form.
    HWND Item(int control) const;

    std::wstring TextOf(int control) const;
    bool IsEnabled(int control) const;

    std::vector<std::wstring> Dates() const;
    int SelectedDate() const;
    int RowCount() const;
    std::wstring Cell(int row, int column) const;

    // The texts of a column from top to bottom.
    std::vector<std::wstring> Column(int column) const;

    // A press and a release of the left mouse button. The date must be in sight.
    void Click(int control) const;
    void ClickRow(int row) const;
    void ClickHeader(int column) const;
    void ClickDate(int index) const;

    // A press and a release of a key in the list of records.
    void PressKey(WORD key) const;

    // The logs that the user can switch to, and the choice of one of them.
    int LogCount() const;
    int SelectedLog() const;
    std::uint32_t TypeOfLog(int index) const;
    void SwitchToLog(int index) const;

    // Tells the page that the user has chosen the date that is selected, or one that need not be in sight.
    void ChooseDate() const;
    void ChooseDate(int index) const;

    const Process& Program() const { return m_process; }

    DWORD Close() const { return CloseForm(m_process, m_form); }

private:
    HWND List() const;

    Process m_process;
    HWND m_form;
};
