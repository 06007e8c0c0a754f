#include "tests/e2e/SaveDialog.h"

#include "resource/resource.h"
#include "tests/e2e/Process.h"
#include "tests/support/LanguageFile.h"

#include <commctrl.h>

#include <iterator>
#include <string_view>

namespace
{

constexpr int TypeCombo = 0x0470; // of the system's save dialog, as its own headers number it

void PressKey(HWND control, WPARAM key)
{
    PostMessageW(control, WM_KEYDOWN, key, 1);
    PostMessageW(control, WM_KEYUP, key, 1);
}

HWND OpenWindow()
{
    HWND window = nullptr;
    WaitUntil(
        [&]
        {
            window = FindWindowW(nullptr, Text(IDS_EXPORT_DIALOG_TITLE).c_str());
            return window != nullptr && IsWindowVisible(window);
        });
    return window;
}

// The dialog's one visible field for text.
HWND FindName(HWND window)
{
    HWND found = nullptr;
    const auto look = [](HWND child, LPARAM pointer) -> BOOL
    {
        wchar_t name[16]{};
        GetClassNameW(child, name, static_cast<int>(std::size(name)));
        if (name != std::wstring_view(WC_EDITW) || !IsWindowVisible(child))
        {
            return TRUE;
        }
        *reinterpret_cast<HWND*>(pointer) = child;
        return FALSE;
    };
    EnumChildWindows(window, look, reinterpret_cast<LPARAM>(&found));
    return found;
}

} // namespace

SaveDialog::SaveDialog() : m_window(OpenWindow()), m_name(FindName(m_window)) {}

void SaveDialog::Type(const std::wstring& text) const
{
    for (const wchar_t character : text)
    {
        PostMessageW(m_name, WM_CHAR, character, 1);
    }
}

void SaveDialog::ChooseType(int index) const
{
    for (int i = 1; i < index; ++i)
    {
        PressKey(GetDlgItem(m_window, TypeCombo), VK_DOWN);
    }
}

void SaveDialog::Press(WPARAM key) const
{
    PressKey(m_name, key);
}
