#include "tests/e2e/Process.h"

#include <psapi.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace
{

constexpr DWORD OutputInterval = 20; // milliseconds to wait for a text of the program before looking at its windows

std::wstring TitleOf(HWND window)
{
    std::array<wchar_t, 256> title{};
    const LRESULT length = SendMessageTimeoutW(window, WM_GETTEXT, title.size(), reinterpret_cast<LPARAM>(title.data()),
                                               SMTO_ABORTIFHUNG, 1000, nullptr);
    return length != 0 ? title.data() : std::wstring();
}

// What stands in the memory that a program which writes debugger output shares with the one that listens.
struct SharedOutput
{
    DWORD process;
    std::array<char, 4096 - sizeof(DWORD)> text; // with its terminator
};

// Listens to the debugger output of all programs. There may be one listener at a time.
class DebugMonitor
{
public:
    DebugMonitor()
        : m_mapping(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(SharedOutput),
                                       L"DBWIN_BUFFER")),
          m_roomReady(CreateEventW(nullptr, FALSE, TRUE, L"DBWIN_BUFFER_READY")),
          m_textReady(CreateEventW(nullptr, FALSE, FALSE, L"DBWIN_DATA_READY")),
          m_pOutput(static_cast<SharedOutput*>(MapViewOfFile(m_mapping.get(), FILE_MAP_READ, 0, 0, 0)))
    {
        if (m_pOutput == nullptr || !m_roomReady || !m_textReady)
        {
            throw std::runtime_error("the debugger output cannot be listened to");
        }
    }

    ~DebugMonitor() { UnmapViewOfFile(m_pOutput); }

    DebugMonitor(const DebugMonitor&) = delete;
    DebugMonitor& operator=(const DebugMonitor&) = delete;

    // Waits for the next text of any program and takes it over when it is that process's. False when none came within
    // the limit in milliseconds.
    bool TakeNext(DWORD process, DWORD limit, std::vector<std::string>& texts) const
    {
        if (WaitForSingleObject(m_textReady.get(), limit) != WAIT_OBJECT_0)
        {
            return false;
        }
        if (m_pOutput->process == process)
        {
            texts.emplace_back(m_pOutput->text.data());
        }
        SetEvent(m_roomReady.get());
        return true;
    }

private:
    const UniqueKernelHandle m_mapping;
    const UniqueKernelHandle m_roomReady;
    const UniqueKernelHandle m_textReady;
    const SharedOutput* const m_pOutput;
};

} // namespace

bool WaitUntil(const std::function<bool()>& condition, ULONGLONG limit, DWORD interval)
{
    const ULONGLONG end = GetTickCount64() + limit;
    while (!condition())
    {
        if (GetTickCount64() > end)
        {
            return false;
        }
        Sleep(interval);
    }
    return true;
}

std::size_t PrivateBytes(HANDLE process)
{
    PROCESS_MEMORY_COUNTERS counters{};
    if (!GetProcessMemoryInfo(process, &counters, sizeof counters))
    {
        throw std::runtime_error("the memory of a program cannot be told");
    }
    return counters.PagefileUsage;
}

std::wstring ProgramFolder()
{
    return std::filesystem::current_path().wstring() + L"\\";
}

Process::Process(const std::wstring& program, const std::wstring& arguments, const std::wstring& output)
    : m_process(StartProcess(L"\"" + program + (arguments.empty() ? L"\"" : L"\" ") + arguments, output))
{
}

Process::~Process()
{
    if (!HasEnded())
    {
        TerminateProcess(Handle(), EXIT_FAILURE);
        HasEnded(10'000);
    }
}

DWORD Process::ExitCode(DWORD limit) const
{
    DWORD code = STILL_ACTIVE;
    HasEnded(limit);
    GetExitCodeProcess(Handle(), &code);
    return code;
}

std::vector<HWND> Process::Windows() const
{
    struct Search
    {
        DWORD id;
        std::vector<HWND> found;
    };

    Search search{Id(), {}};
    const auto look = [](HWND window, LPARAM pointer) -> BOOL
    {
        auto& of = *reinterpret_cast<Search*>(pointer);
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (owner == of.id && IsWindowVisible(window))
        {
            of.found.push_back(window);
        }
        return TRUE;
    };
    EnumWindows(look, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND Process::Window(const std::wstring& title) const
{
    HWND found = nullptr;
    WaitUntil(
        [&]
        {
            for (const HWND window : Windows())
            {
                found = TitleOf(window) == title ? window : found;
            }
            return found != nullptr || HasEnded();
        });
    return found;
}

DebuggerOutput::DebuggerOutput(const std::wstring& program, const std::wstring& arguments, ULONGLONG limit)
{
    const DebugMonitor monitor;
    const Process process(program, arguments);
    const ULONGLONG end = GetTickCount64() + limit;
    bool hasMore = true;
    while ((hasMore || !ended) && GetTickCount64() < end)
    {
        hadWindow = hadWindow || !process.Windows().empty();
        ended = process.HasEnded(); // before its last texts are taken
        hasMore = monitor.TakeNext(process.Id(), ended ? 0 : OutputInterval, lines);
    }
    exitCode = process.ExitCode(0);
}

bool DebuggerOutput::Has(const std::string& text) const
{
    return std::ranges::find(lines, text) != lines.end();
}
