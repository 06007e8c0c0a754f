#pragma once

#include "platform/dialog/DialogFramework.h"

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

// Windows and notes for the tests of the dialog framework.

// The arguments in one line, with blanks between them: Note(L"size", 1, 2) is "size 1 2".
template <class... Arguments>
std::wstring Note(const Arguments&... arguments)
{
    std::wostringstream line;
    const wchar_t* separator = L"";
    ((line << separator << arguments, separator = L" "), ...);
    return line.str();
}

using Notes = std::vector<std::wstring>;

// A window without any object: its procedure keeps what reaches it and gives a set answer to messages from WM_USER on.
class PlainWindow
{
public:
    struct Reached
    {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
    };

    explicit PlainWindow(HWND parent = nullptr, int id = 0)
    {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = &Procedure;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.lpszClassName = ClassName;
        RegisterClassW(&windowClass);
        m_hWnd.reset(CreateWindowExW(0, ClassName, L"", parent != nullptr ? WS_CHILD | WS_VISIBLE : WS_POPUP, 0, 0, 200,
                                     100, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                     GetModuleHandleW(nullptr), this));
    }

    HWND Get() const { return m_hWnd.get(); }

    void Destroy() { m_hWnd.reset(); }

    long CountOf(UINT message) const { return std::ranges::count(m_reached, message, &Reached::message); }

    static constexpr wchar_t ClassName[] = L"KestrixTestWindow";
    LRESULT m_answer = 0;
    std::vector<Reached> m_reached;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == WM_NCCREATE)
        {
            const auto* const create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
            SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
        }
        auto* const self = reinterpret_cast<PlainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (self != nullptr)
        {
            self->m_reached.push_back({message, wParam, lParam});
            if (message == WM_NCDESTROY)
            {
                static_cast<void>(self->m_hWnd.release());
            }
            if (message >= WM_USER)
            {
                return self->m_answer;
            }
        }
        return DefWindowProcW(window, message, wParam, lParam);
    }

    UniqueWindow m_hWnd;
};

// An application that keeps the exceptions that leave handlers instead of showing them.
class RecordingApp : public CWinApp
{
public:
    RecordingApp() : CWinApp(L"Dialog tests") {}

    void OnHandlerException(const std::exception_ptr& exception) override
    {
        m_reports.push_back(ExceptionText(exception));
        m_exceptions.push_back(exception);
    }

    Notes m_reports;
    std::vector<std::exception_ptr> m_exceptions;
};

// Dispatches messages until the condition holds; false when it does not within ten seconds.
template <class Condition>
bool WaitUntil(Condition condition)
{
    const ULONGLONG end = GetTickCount64() + 10'000;
    while (!condition())
    {
        if (GetTickCount64() > end)
        {
            return false;
        }
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
    return true;
}
