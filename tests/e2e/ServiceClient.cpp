// A client of the service, for tests that need one in another process: ServiceClient MODE FILE
// Advises a sink, appends a line "ready" to the file and then one for each command event that arrives, and runs until
// it is ended. MODE is
//   listen   the exit command ends the process at once, as it does the viewer
//   hang     the first event never returns

#include "tests/e2e/EventRecorder.h"

#include <windows.h>

#include <objbase.h>
#include <ocidl.h>

#include <filesystem>
#include <fstream>
#include <string_view>

namespace
{

constexpr char ExitCommand[] = "1 -1 0";

enum ExitCode
{
    NoConnection = 1,
    WrongCommandLine = 2,
};

void AppendLine(const wchar_t* path, const std::string& line)
{
    std::ofstream(std::filesystem::path(path), std::ios::app) << line << std::endl;
}

bool Advise(IUnknown& sink)
{
    IVdFrwkLocalController* controller = nullptr;
    IConnectionPointContainer* container = nullptr;
    IConnectionPoint* point = nullptr;
    DWORD cookie = 0;
    return SUCCEEDED(CoCreateInstance(__uuidof(VdFrwkLocalController), nullptr, CLSCTX_ALL,
                                      __uuidof(IVdFrwkLocalController), reinterpret_cast<void**>(&controller))) &&
           SUCCEEDED(
               controller->QueryInterface(__uuidof(IConnectionPointContainer), reinterpret_cast<void**>(&container))) &&
           SUCCEEDED(container->FindConnectionPoint(__uuidof(IVdFrwkLocalEvents), &point)) &&
           SUCCEEDED(point->Advise(&sink, &cookie));
}

} // namespace

int wmain(int argc, wchar_t** argv)
{
    if (argc != 3)
    {
        return WrongCommandLine;
    }
    const bool hangs = std::wstring_view(argv[1]) == L"hang";
    EventRecorder recorder(
        [&](const std::string& event)
        {
            AppendLine(argv[2], event);
            if (hangs)
            {
                Sleep(INFINITE);
            }
            if (event == ExitCommand)
            {
                ExitProcess(0);
            }
            return S_OK;
        });
    // What it holds is let go by the end of the process alone, as by that of a client that crashes.
    if (FAILED(CoInitialize(nullptr)) || !Advise(recorder))
    {
        return NoConnection;
    }
    AppendLine(argv[2], "ready");
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
    {
        DispatchMessageW(&message);
    }
    return 0;
}
