#include "tests/bench/StartedProgram.h"

#include "platform/dialog/DialogFramework.h"
#include "resource/resource.h"
#include "tests/bench/Bench.h"
#include "tests/e2e/Viewer.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace
{

constexpr int VirusLog = 1; // the code of the command line

constexpr ULONGLONG Patience = 60'000; // milliseconds until a program has to be painted
constexpr ULONGLONG Rest = 500;        // milliseconds without a change after which a place is at rest
constexpr DWORD LookInterval = 1;      // milliseconds between two looks, to leave the processor to the program

constexpr SIZE StripSize{200, 16}; // what is looked at, in the middle of a window

bool LookUntil(const std::function<bool()>& condition)
{
    return WaitUntil(condition, Patience, LookInterval);
}

} // namespace

// A strip of the screen. Everything that looking needs stands ready, so that it takes no time of the system's server,
// which the programs that are timed need.
class StartedProgram::Strip
{
public:
    explicit Strip(POINT place) : m_place(place)
    {
        Require(m_bitmap.CreateDibSection(StripSize), "there is no room for a picture of the screen");
        SelectObject(m_memory, m_bitmap);
    }

    std::vector<DWORD> Look() const
    {
        BitBlt(m_memory, 0, 0, StripSize.cx, StripSize.cy, m_screen, m_place.x, m_place.y, SRCCOPY);
        GdiFlush();
        BITMAP bitmap{};
        GetObjectW(m_bitmap, sizeof bitmap, &bitmap);
        const auto* const bits = static_cast<const DWORD*>(bitmap.bmBits);
        return {bits, bits + StripSize.cx * StripSize.cy};
    }

private:
    const POINT m_place; // on the screen
    const CClientDC m_screen{nullptr};
    CBitmap m_bitmap;
    const CMemoryDC m_memory; // gives the bitmap back first
};

StartedProgram::StartedProgram(const std::wstring& program, const std::wstring& arguments, Finder finder)
    : m_strProgram((ProductFolder() / program).wstring()), m_strArguments(arguments), m_pfnFinder(finder)
{
    m_process.emplace(m_strProgram, m_strArguments);
    Require(LookUntil([&] { return FindWindowToLookAt() != nullptr; }), "a program that was started shows no window");
    const HWND window = FindWindowToLookAt();
    SendMessageW(window, WM_NULL, 0, 0); // a window that waits for its content looks at rest, but does not answer
    RECT place{};
    GetWindowRect(window, &place);
    m_strip = std::make_unique<Strip>(
        POINT{(place.left + place.right - StripSize.cx) / 2, (place.top + place.bottom - StripSize.cy) / 2});
    ULONGLONG changed = GetTickCount64();
    const auto isAtRest = [&]
    {
        if (std::vector<DWORD> now = m_strip->Look(); now != m_atRest)
        {
            m_atRest = std::move(now);
            changed = GetTickCount64();
        }
        return GetTickCount64() - changed > Rest;
    };
    Require(LookUntil(isAtRest), "a program that was started does not come to rest");
    Close();
}

StartedProgram::~StartedProgram() = default;

bool StartedProgram::IsOfOneColour() const
{
    return std::ranges::count(m_atRest, m_atRest.front()) == std::ssize(m_atRest);
}

void StartedProgram::Run()
{
    m_process.emplace(m_strProgram, m_strArguments);
    Require(LookUntil([&] { return m_strip->Look() == m_atRest; }), "a program that was started is not painted");
}

void StartedProgram::CloseWindow()
{
    PostMessageW(GetAncestor(FindWindowToLookAt(), GA_ROOT), WM_CLOSE, 0, 0);
    Require(LookUntil([&] { return m_strip->Look() != m_atRest; }), "a program leaves its picture on the screen");
}

void StartedProgram::WaitForEnd()
{
    Require(m_process->ExitCode() == 0, "a program that was started does not end");
}

HWND StartedProgram::FindWindowToLookAt() const
{
    for (const HWND top : m_process->Windows())
    {
        if (const HWND window = m_pfnFinder(top))
        {
            return window;
        }
    }
    return nullptr;
}

StartedViewer::StartedViewer(const std::wstring& path)
    : StartedProgram(L"Kestrix.exe", FileCommandLine(VirusLog, path),
                     [](HWND form) { return FormItem(form, IDC_RECORD_LIST); })
{
}
