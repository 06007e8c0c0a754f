#pragma once

#include "tests/e2e/Process.h"

#include <string>
#include <vector>

// The command line for a file of a log of this command code.
std::wstring FileCommandLine(int logCode, const std::wstring& path);

// The real viewer, seen and driven from outside through its windows.
class Viewer
{
public:
    // Starts the program and waits for its form, which is null when none appears.
    explicit Viewer(const std::wstring& arguments, const std::wstring& program = ProgramFolder() + L"Kestrix.exe");

    const Process& GetProcess() const { return m_process; }

    HWND Form() const { return m_form; }

    // A control of the form or of its page; null when there is none.
    HWND Item(int control) const;

    std::wstring TextOf(int control) const;

    std::vector<std::wstring> Dates() const;
    int RowCount() const;
    std::wstring Cell(int row, int column) const;

    // The texts of a column from top to bottom.
    std::vector<std::wstring> Column(int column) const;

    // A press and a release of the left mouse button.
    void ClickRow(int row) const;
    void ClickHeader(int column) const;

    // Tells the page that the user has chosen the date that is selected.
    void ChooseDate() const;

    void PressButton(int control) const;

private:
    HWND List() const;

    Process m_process;
    HWND m_form;
};
