#pragma once

#include "platform/dialog/UniqueHandle.h"
#include "tests/support/StartProcess.h"

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

// Looks again and again, an interval apart, until the condition holds; false when it does not within the limit. Both
// are in milliseconds.
bool WaitUntil(const std::function<bool()>& condition, ULONGLONG limit = 30'000, DWORD interval = 20);

// The memory that a process has for itself alone, in bytes; throws std::runtime_error.
std::size_t PrivateBytes(HANDLE process);

// The folder of the built program, in which tests run, with its final separator.
std::wstring ProgramFolder();

// A program that was started by a test, and ends with the object at the latest.
class Process
{
public:
    // arguments: what follows the program's name on the command line. output: the file that is made of what it prints;
    // without one that goes where the test's own goes. Throws std::runtime_error when it cannot start.
    explicit Process(const std::wstring& program, const std::wstring& arguments = {}, const std::wstring& output = {});
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    HANDLE Handle() const { return m_process.get(); }

    DWORD Id() const { return GetProcessId(Handle()); }

    bool HasEnded(DWORD limit = 0) const { return WaitForSingleObject(Handle(), limit) == WAIT_OBJECT_0; }

    // Waits for the end; STILL_ACTIVE when the program does not end within the limit in milliseconds.
    DWORD ExitCode(DWORD limit = 30'000) const;

    // The visible windows of the program that have no parent.
    std::vector<HWND> Windows() const;

    // Waits for a visible window with this title; null when there is none in time or the program has ended.
    HWND Window(const std::wstring& title) const;

private:
    Suite::KernelHandle m_process;
};

// What a program has written to the debugger output until it ended, and whether it ever had a visible window. It is
// listened to and not debugged: a debugged program that throws may lose its registers under Wine 8. The limit is in
// milliseconds.
struct DebuggerOutput
{
    explicit DebuggerOutput(const std::wstring& program, const std::wstring& arguments = {}, ULONGLONG limit = 60'000);

    bool Has(const std::string& text) const;

    std::vector<std::string> lines;
    bool ended = false;
    DWORD exitCode = STILL_ACTIVE;
    bool hadWindow = false;
};
