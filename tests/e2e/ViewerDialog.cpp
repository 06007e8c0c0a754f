#include "tests/e2e/ViewerDialog.h"

#include "tests/e2e/Input.h"

#include <array>
#include <stdexcept>

namespace
{

// The list that hangs from a combo box of the viewer; null when none is open.
HWND OpenList(const Process& viewer)
{
    for (const HWND window : viewer.Windows())
    {
        std::array<wchar_t, 32> name{};
        GetClassNameW(window, name.data(), static_cast<int>(name.size()));
        if (name.data() == std::wstring(L"ComboLBox"))
        {
            return window;
        }
    }
    return nullptr;
}

} // namespace

ViewerDialog::ViewerDialog(const Viewer& viewer, int control) : m_viewer(viewer)
{
    WaitUntil(
        [&]
        {
            for (const HWND window : viewer.Program().Windows())
            {
                m_window = window != viewer.Form() && GetDlgItem(window, control) != nullptr ? window : m_window;
            }
            return m_window != nullptr;
        });
    if (m_window == nullptr)
    {
        throw std::runtime_error("a dialog of the viewer does not come");
    }
}

bool ViewerDialog::WaitUntilClosed() const
{
    return WaitUntil([this] { return !IsOpen(); });
}

void ViewerDialog::Click(int control) const
{
    ClickOn(Item(control));
}

void ViewerDialog::ChooseByClick(int comboBox, int index) const
{
    Click(comboBox);
    HWND list = nullptr;
    WaitUntil([&] { return (list = OpenList(m_viewer.Program())) != nullptr; });
    RECT place{};
    Ask(list, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&place));
    ClickAt(list, place);
    WaitUntil([&] { return OpenList(m_viewer.Program()) == nullptr; });
}

void ViewerDialog::Press(WORD key) const
{
    PressKeyIn(WaitForAnyFocus(), key);
}

void ViewerDialog::PressAccessKey(wchar_t letter) const
{
    PressAltAnd(letter, WaitForAnyFocus());
}

bool ViewerDialog::WaitForFocus(int control) const
{
    return WaitUntil([&] { return FocusBeside(m_window) == Item(control); });
}

int ViewerDialog::ChoiceOf(int comboBox) const
{
    return static_cast<int>(Ask(Item(comboBox), CB_GETCURSEL));
}

bool ViewerDialog::IsChecked(int checkBox) const
{
    return Ask(Item(checkBox), BM_GETCHECK) == BST_CHECKED;
}

HWND ViewerDialog::WaitForAnyFocus() const
{
    HWND focus = nullptr;
    const bool hasCome = WaitUntil(
        [&]
        {
            focus = FocusBeside(m_window);
            return IsChild(m_window, focus) != FALSE; // the dialog itself has it at first, and takes no letter
        });
    if (!hasCome)
    {
        throw std::runtime_error("a dialog of the viewer does not get the focus");
    }
    return focus;
}
