// The start of the viewer until its list is painted, beside that of a dialog without controls.
//
// Painted means that the place on the screen looks as it will look at rest: the pixels are the one thing that tells it
// from outside, without a message that the program would have to answer meanwhile, and the same way for both programs.

#include "platform/dialog/DialogFramework.h"
#include "resource/resource.h"
#include "suite/samples/Month.h"
#include "tests/bench/Bench.h"
#include "tests/bench/Timing.h"
#include "tests/e2e/Viewer.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <iterator>
#include <optional>
#include <vector>

namespace
{

constexpr double Budget = 2;
constexpr std::uint64_t Records = 10'000;
constexpr int Rounds = 15; // a start depends on all that the system does meanwhile

constexpr ULONGLONG Patience = 30'000; // milliseconds until a program has to be painted
constexpr ULONGLONG Rest = 500;        // milliseconds without a change after which a place is at rest
constexpr DWORD LookInterval = 1;      // milliseconds between two looks, to leave the processor to the program

constexpr SIZE StripSize{200, 16}; // what is looked at, in the middle of a window

bool LookUntil(const std::function<bool()>& condition)
{
    return WaitUntil(condition, Patience, LookInterval);
}

// A strip of the screen. Everything that looking needs stands ready, so that it takes no time of the system's server,
// which the programs that are timed need.
class Strip
{
public:
    using Pixels = std::vector<DWORD>;

    explicit Strip(POINT place) : m_place(place)
    {
        Require(m_bitmap.CreateDibSection(StripSize), "there is no room for a picture of the screen");
        SelectObject(m_memory, m_bitmap);
    }

    Pixels Look() const
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

// A program that is started, painted and closed again and again. Its windows stand where they stood before.
class Start
{
public:
    // The window in the middle of which the program is looked at; null as long as it is not there.
    using Finder = HWND (*)(HWND top);

    // Starts it once, which also brings its files into memory, and learns how it looks at rest.
    Start(const std::wstring& program, const std::wstring& arguments, Finder finder)
        : m_strProgram((ProductFolder() / program).wstring()), m_strArguments(arguments), m_pfnFinder(finder)
    {
        m_process.emplace(m_strProgram, m_strArguments);
        Require(LookUntil([&] { return FindWindowToLookAt() != nullptr; }),
                "a program that was started shows no window");
        RECT window{};
        GetWindowRect(FindWindowToLookAt(), &window);
        m_strip.emplace(
            POINT{(window.left + window.right - StripSize.cx) / 2, (window.top + window.bottom - StripSize.cy) / 2});
        ULONGLONG changed = GetTickCount64();
        const auto isAtRest = [&]
        {
            if (Strip::Pixels now = m_strip->Look(); now != m_atRest)
            {
                m_atRest = std::move(now);
                changed = GetTickCount64();
            }
            return GetTickCount64() - changed > Rest;
        };
        Require(LookUntil(isAtRest), "a program that was started does not come to rest");
        Close();
    }

    bool IsOfOneColour() const { return std::ranges::count(m_atRest, m_atRest.front()) == std::ssize(m_atRest); }

    // The work that is timed.
    void Run()
    {
        m_process.emplace(m_strProgram, m_strArguments);
        Require(LookUntil([&] { return m_strip->Look() == m_atRest; }), "a program that was started is not painted");
    }

    // As Alt+F4 does. What is left on the screen must not be taken for the paint of the next start.
    void Close()
    {
        PostMessageW(GetAncestor(FindWindowToLookAt(), GA_ROOT), WM_CLOSE, 0, 0);
        Require(m_process->ExitCode() == 0, "a program that was started does not end");
        Require(LookUntil([&] { return m_strip->Look() != m_atRest; }), "a program leaves its picture on the screen");
    }

private:
    HWND FindWindowToLookAt() const
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

    const std::wstring m_strProgram;
    const std::wstring m_strArguments;
    const Finder m_pfnFinder;
    std::optional<Process> m_process;
    std::optional<Strip> m_strip;
    Strip::Pixels m_atRest;
};

std::wstring MakeDay(const TemporaryFolder& folder)
{
    constexpr std::chrono::year_month_day day{std::chrono::year(2026), std::chrono::January, std::chrono::day(1)};
    constexpr std::uint64_t seed = 1;
    const std::wstring path = folder.File(L"20260101.VLG");
    Samples::WriteLines(path, *Samples::FindKind(L"VLG"), day, Records, seed);
    return path;
}

} // namespace

Figures BenchStart()
{
    constexpr int virusLog = 1; // the code of the command line
    const TemporaryFolder folder;
    Start viewer(L"Kestrix.exe", FileCommandLine(virusLog, MakeDay(folder)),
                 [](HWND form) { return FormItem(form, IDC_RECORD_LIST); });
    Require(!viewer.IsOfOneColour(), "the list of the viewer shows no records");
    Start empty(L"EmptyDialog.exe", {}, [](HWND dialog) { return dialog; });
    const std::vector<double> times = MedianTimes(
        {
            {[&] { empty.Run(); }, [&] { empty.Close(); }},
            {[&] { viewer.Run(); }, [&] { viewer.Close(); }},
        },
        Rounds);
    return {{"start: until the list of 10,000 records is painted", times[1], "ms", times[0], Budget}};
}
