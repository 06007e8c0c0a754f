#include "tests/ui/resource/TemplateDialog.h"

#include "resource/resource.h"
#include "tests/support/CommonControls.h"

#include <cwchar>
#include <stdexcept>

namespace
{

INT_PTR CALLBACK LeaveAllToTheSystem(HWND, UINT, WPARAM, LPARAM)
{
    return FALSE;
}

} // namespace

TemplateDialog::TemplateDialog(unsigned number, HWND parent, const std::wstring& language)
{
    RegisterCommonControls();
    const HMODULE module = BuiltLanguageFile(language);
    const auto bytes = ResourceBytes(module, number, MAKEINTRESOURCEW(5));
    m_window = CreateDialogIndirectParamW(module, reinterpret_cast<const DLGTEMPLATE*>(bytes.data()), parent,
                                          LeaveAllToTheSystem, 0);
    if (m_window == nullptr)
    {
        throw std::runtime_error("The dialog " + std::to_string(number) + " cannot be made");
    }
}

TemplateDialog::~TemplateDialog()
{
    DestroyWindow(m_window);
}

RECT TemplateDialog::Client() const
{
    RECT client{};
    GetClientRect(m_window, &client);
    return client;
}

RECT TemplateDialog::Place(HWND control) const
{
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, m_window, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

std::vector<HWND> TemplateDialog::Children() const
{
    std::vector<HWND> children;
    for (HWND child = GetWindow(m_window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
    {
        if (!(GetWindowLongPtrW(child, GWL_EXSTYLE) & WS_EX_CONTROLPARENT))
        {
            children.push_back(child);
        }
    }
    return children;
}

TemplateDialogs::TemplateDialogs(const std::wstring& language)
    : m_form(IDD_LOG_FORM, nullptr, language),
      m_page(IDD_LOG_PAGE, m_form.Window(), language),
      m_report(IDD_REPORT_PAGE, m_form.Window(), language),
      m_settings(IDD_SETTINGS, m_form.Window(), language),
      m_deletion(IDD_DELETE, m_form.Window(), language)
{
}

std::wstring TextOf(HWND window)
{
    wchar_t text[256]{};
    GetWindowTextW(window, text, static_cast<int>(std::size(text)));
    return text;
}

std::wstring ClassOf(HWND window)
{
    wchar_t name[64]{};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return name;
}

int NumberOf(HWND control)
{
    return GetDlgCtrlID(control) & 0xFFFF;
}

bool Holds(const RECT& outer, const RECT& inner)
{
    RECT all{};
    UnionRect(&all, &outer, &inner);
    return EqualRect(&all, &outer) != FALSE;
}

SIZE TextSizeIn(const LOGFONTW& font, const std::wstring& text)
{
    const HDC dc = GetDC(nullptr);
    const HFONT selected = CreateFontIndirectW(&font);
    const HGDIOBJ before = SelectObject(dc, selected);
    SIZE size{};
    GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
    SelectObject(dc, before);
    DeleteObject(selected);
    ReleaseDC(nullptr, dc);
    return size;
}

SIZE TextSize(HWND window, const std::wstring& text, LONG weight)
{
    LOGFONTW description{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof description, &description);
    description.lfWeight = weight;
    return TextSizeIn(description, text);
}

SIZE HeadingTextSize(const std::wstring& text, LONG weight)
{
    LOGFONTW font{};
    font.lfHeight = 16;
    font.lfWeight = weight;
    font.lfCharSet = DEFAULT_CHARSET;
    std::wcscpy(font.lfFaceName, L"Segoe UI");
    return TextSizeIn(font, text);
}

RECT TextRect(POINT place, SIZE size)
{
    return {place.x, place.y, place.x + size.cx, place.y + size.cy};
}

int Width(const RECT& place)
{
    return place.right - place.left;
}

int Height(const RECT& place)
{
    return place.bottom - place.top;
}
