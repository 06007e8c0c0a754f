#pragma once

#include "tests/e2e/Process.h"

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

// A program that is started, painted and closed again and again. Its windows stand where they stood before.
//
// Painted means that the place on the screen looks as it will look at rest: the pixels are the one thing that tells it
// from outside, without a message that the program would have to answer meanwhile, and the same way for all programs.
class StartedProgram
{
public:
    // The window in the middle of which the program is looked at; null as long as it is not there.
    using Finder = HWND (*)(HWND top);

    // Starts it once, which also brings its files into memory, learns how it looks at rest, and closes it.
    StartedProgram(const std::wstring& program, const std::wstring& arguments, Finder finder);
    ~StartedProgram();

    StartedProgram(const StartedProgram&) = delete;
    StartedProgram& operator=(const StartedProgram&) = delete;

    bool IsOfOneColour() const;

    // Starts it and waits until it is painted.
    void Run();

    // As Alt+F4 does, until the window has left the screen.
    void CloseWindow();

    // After that: until the program has ended.
    void WaitForEnd();

    void Close()
    {
        CloseWindow();
        WaitForEnd();
    }

private:
    class Strip;

    HWND FindWindowToLookAt() const;

    const std::wstring m_strProgram;
    const std::wstring m_strArguments;
    const Finder m_pfnFinder;
    std::optional<Process> m_process;
    std::unique_ptr<Strip> m_strip;
    std::vector<DWORD> m_atRest; // the pixels of the strip
};

// The viewer on a daily file of the virus log, looked at in its list.
class StartedViewer : public StartedProgram
{
public:
    explicit StartedViewer(const std::wstring& path);
};
