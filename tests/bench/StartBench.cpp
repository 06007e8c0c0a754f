// The start of the viewer until its list is painted, beside that of a dialog without controls.
//
// Painted means that the place on the screen looks as it will look at rest: the pixels are the one thing that tells it
// from outside, without a message that the program would have to answer meanwhile, and the same way for both programs.

#include "resource/resource.h"
#include "suite/samples/Month.h"
#include "tests/bench/Bench.h"
#include "tests/bench/Timing.h"
#include "tests/e2e/Viewer.h"
#include "tests/support/Picture.h"
#include "tests/support/TemporaryFolder.h"

#include <chrono>
#include <optional>

namespace
{

constexpr double Budget = 2;
constexpr std::uint64_t Records = 10'000;

constexpr ULONGLONG Patience = 30'000; // milliseconds until a program has to be painted
constexpr ULONGLONG Rest = 500;        // milliseconds without a change after which a place is at rest
constexpr DWORD LookInterval = 1;      // milliseconds between two looks, to leave the processor to the program

constexpr SIZE Strip{200, 16}; // what is looked at, in the middle of a window

bool LookUntil(const std::function<bool()>& condition)
{
    return WaitUntil(condition, Patience, LookInterval);
}

POINT StripIn(HWND window)
{
    RECT place{};
    GetWindowRect(window, &place);
    return {(place.left + place.right - Strip.cx) / 2, (place.top + place.bottom - Strip.cy) / 2};
}

Picture ScreenAt(POINT place)
{
    const HDC screen = GetDC(nullptr);
    Picture picture =
        PictureOf(Strip, [&](HDC dc) { BitBlt(dc, 0, 0, Strip.cx, Strip.cy, screen, place.x, place.y, SRCCOPY); });
    ReleaseDC(nullptr, screen);
    return picture;
}

// A program that is started, painted and closed again and again.
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
        Require(LookUntil([&] { return FindPlace(); }), "a program that was started shows no window");
        ULONGLONG changed = GetTickCount64();
        const auto isAtRest = [&]
        {
            if (Picture now = ScreenAt(m_place); now != m_atRest)
            {
                m_atRest = std::move(now);
                changed = GetTickCount64();
            }
            return GetTickCount64() - changed > Rest;
        };
        Require(LookUntil(isAtRest), "a program that was started does not come to rest");
        Close();
    }

    bool IsOfOneColour() const { return m_atRest == Picture(Strip.cx, Strip.cy, m_atRest.At(0, 0)); }

    // The work that is timed.
    void Run()
    {
        m_process.emplace(m_strProgram, m_strArguments);
        Require(LookUntil([&] { return FindPlace() && ScreenAt(m_place) == m_atRest; }),
                "a program that was started is not painted");
    }

    // As Alt+F4 does. What is left on the screen must not be taken for the paint of the next start.
    void Close()
    {
        PostMessageW(m_top, WM_CLOSE, 0, 0);
        Require(m_process->ExitCode() == 0, "a program that was started does not end");
        Require(LookUntil([&] { return ScreenAt(m_place) != m_atRest; }), "a program leaves its picture on the screen");
    }

private:
    bool FindPlace()
    {
        for (const HWND top : m_process->Windows())
        {
            if (const HWND window = m_pfnFinder(top))
            {
                m_top = top;
                m_place = StripIn(window);
                return true;
            }
        }
        return false;
    }

    const std::wstring m_strProgram;
    const std::wstring m_strArguments;
    const Finder m_pfnFinder;
    std::optional<Process> m_process;
    HWND m_top = nullptr;
    POINT m_place{}; // of the strip, on the screen
    Picture m_atRest{Strip.cx, Strip.cy, 0};
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
    const std::vector<double> times = MedianTimes({
        {[&] { empty.Run(); }, [&] { empty.Close(); }},
        {[&] { viewer.Run(); }, [&] { viewer.Close(); }},
    });
    return {{"start: until the list of 10,000 records is painted", times[1], "ms", times[0], Budget}};
}
