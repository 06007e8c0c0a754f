#include "tests/e2e/Process.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace
{

constexpr DWORD EventInterval = 20; // milliseconds to wait for an event of the program before looking at its windows

std::wstring TitleOf(HWND window)
{
    std::array<wchar_t, 256> title{};
    const LRESULT length = SendMessageTimeoutW(window, WM_GETTEXT, title.size(), reinterpret_cast<LPARAM>(title.data()),
                                               SMTO_ABORTIFHUNG, 1000, nullptr);
    return length != 0 ? title.data() : std::wstring();
}

// A text in the memory of another process.
std::string RemoteText(HANDLE process, const OUTPUT_DEBUG_STRING_INFO& info)
{
    std::string bytes(info.nDebugStringLength, '\0');
    SIZE_T read = 0;
    ReadProcessMemory(process, info.lpDebugStringData, bytes.data(), bytes.size(), &read);
    bytes.resize(read);
    if (info.fUnicode)
    {
        std::string narrow;
        for (std::size_t i = 0; i + 1 < bytes.size(); i += sizeof(wchar_t))
        {
            narrow += bytes[i];
        }
        bytes = narrow;
    }
    return bytes.substr(0, bytes.find('\0'));
}

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

std::wstring ProgramFolder()
{
    return std::filesystem::current_path().wstring() + L"\\";
}

Process::Process(const std::wstring& program, const std::wstring& arguments, DWORD creationFlags)
{
    std::wstring line = L"\"" + program + L"\"" + (arguments.empty() ? L"" : L" " + arguments);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION information{};
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, creationFlags, nullptr, nullptr,
                        &startup, &information))
    {
        throw std::runtime_error("a program of the test cannot be started");
    }
    m_process.reset(information.hProcess);
    const UniqueKernelHandle thread(information.hThread);
    m_nId = information.dwProcessId;
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

    Search search{m_nId, {}};
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
    const Process process(program, arguments, DEBUG_ONLY_THIS_PROCESS);
    const ULONGLONG end = GetTickCount64() + limit;
    while (!ended && GetTickCount64() < end)
    {
        hadWindow = hadWindow || !process.Windows().empty();
        DEBUG_EVENT event{};
        if (!WaitForDebugEvent(&event, EventInterval))
        {
            continue;
        }
        DWORD answer = DBG_CONTINUE;
        switch (event.dwDebugEventCode)
        {
        case OUTPUT_DEBUG_STRING_EVENT:
            lines.push_back(RemoteText(process.Handle(), event.u.DebugString));
            break;
        case EXCEPTION_DEBUG_EVENT: // the start's own break point is dealt with; all else is the program's
            answer = event.u.Exception.ExceptionRecord.ExceptionCode == static_cast<DWORD>(EXCEPTION_BREAKPOINT)
                         ? DBG_CONTINUE
                         : DBG_EXCEPTION_NOT_HANDLED;
            break;
        case CREATE_PROCESS_DEBUG_EVENT:
            UniqueKernelHandle(event.u.CreateProcessInfo.hFile).reset();
            break;
        case LOAD_DLL_DEBUG_EVENT:
            UniqueKernelHandle(event.u.LoadDll.hFile).reset();
            break;
        case EXIT_PROCESS_DEBUG_EVENT:
            ended = true;
            exitCode = event.u.ExitProcess.dwExitCode;
            break;
        default:
            break;
        }
        ContinueDebugEvent(event.dwProcessId, event.dwThreadId, answer);
    }
    if (!ended)
    {
        DebugActiveProcessStop(process.Id()); // so that it can be ended
    }
}

bool DebuggerOutput::Has(const std::string& text) const
{
    return std::ranges::find(lines, text) != lines.end();
}
