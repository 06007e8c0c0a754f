#include "tests/e2e/Input.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace
{

constexpr UINT AnswerLimit = 60'000; // milliseconds that a window has to answer
constexpr LPARAM KeyIsDown = 1;
constexpr LPARAM KeyIsUp = static_cast<LPARAM>(0xC0000001);

} // namespace

LRESULT Ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    DWORD_PTR answer = 0;
    if (!SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, AnswerLimit, &answer))
    {
        throw std::runtime_error("a window of the viewer does not answer");
    }
    return static_cast<LRESULT>(answer);
}

void ClickAt(HWND window, const RECT& place)
{
    const LPARAM point = MAKELPARAM(place.left + 8, (place.top + place.bottom) / 2);
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, point);
    PostMessageW(window, WM_LBUTTONUP, 0, point);
}

void ClickOn(HWND window)
{
    RECT place{};
    GetClientRect(window, &place);
    ClickAt(window, place);
}

void PressKeyIn(HWND window, WORD key)
{
    PostMessageW(window, WM_KEYDOWN, key, KeyIsDown);
    PostMessageW(window, WM_KEYUP, key, KeyIsUp);
}

void PressKeysOfMachine(HWND window, std::initializer_list<WORD> keys)
{
    std::vector<INPUT> presses;
    for (const WORD key : keys)
    {
        INPUT press{};
        press.type = INPUT_KEYBOARD;
        press.ki.wVk = key;
        presses.push_back(press);
    }
    std::vector<INPUT> releases(presses.rbegin(), presses.rend());
    std::ranges::for_each(releases, [](INPUT& release) { release.ki.dwFlags = KEYEVENTF_KEYUP; });
    presses.insert(presses.end(), releases.begin(), releases.end());
    SetForegroundWindow(window);
    SendInput(static_cast<UINT>(presses.size()), presses.data(), sizeof(INPUT));
}

void PressAltAnd(wchar_t letter, HWND window)
{
    constexpr LPARAM altIsDown = 1 << 29;
    PostMessageW(window, WM_SYSCHAR, letter, altIsDown);
}

HWND FocusBeside(HWND window)
{
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
    return info.hwndFocus;
}
