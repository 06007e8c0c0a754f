#pragma once

#include "tests/unit/resource/BuiltFile.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <array>
#include <string>
#include <vector>

// Names of the window classes of the templates.
constexpr wchar_t Static[] = L"Static";
constexpr wchar_t Button[] = L"Button";
constexpr wchar_t Edit[] = L"Edit";
constexpr wchar_t ListBox[] = L"ListBox";
constexpr wchar_t ComboBox[] = L"ComboBox";
constexpr wchar_t ListView[] = L"SysListView32";
constexpr wchar_t Tab[] = L"SysTabControl32";

// A dialog made of a template of a built language file, without any code of the viewer; the window lives as long as
// the object. Throws std::runtime_error when the dialog cannot be made.
class TemplateDialog
{
public:
    explicit TemplateDialog(unsigned number, HWND parent = nullptr, const std::wstring& language = English);
    ~TemplateDialog();
    TemplateDialog(const TemplateDialog&) = delete;
    TemplateDialog& operator=(const TemplateDialog&) = delete;

    HWND Window() const { return m_window; }

    HWND Item(int number) const { return GetDlgItem(m_window, number); }

    RECT Client() const;

    // A control's rectangle in the dialog's client area.
    RECT Place(HWND control) const;

    RECT Place(int number) const { return Place(Item(number)); }

    // The controls from the first to the last of the template, without a dialog inside this one.
    std::vector<HWND> Children() const;

private:
    HWND m_window = nullptr;
};

// The form of a language, its two pages as its children, and the small dialogs that it owns.
class TemplateDialogs
{
public:
    explicit TemplateDialogs(const std::wstring& language = English);

    TemplateDialog m_form;
    TemplateDialog m_page;
    TemplateDialog m_report;
    TemplateDialog m_settings;
    TemplateDialog m_deletion;

    const std::array<const TemplateDialog*, 2> m_small{&m_settings, &m_deletion};
    const std::array<const TemplateDialog*, 5> m_all{&m_form, &m_page, &m_report, &m_settings, &m_deletion};
};

// Those of English.
class Templates : public ::testing::Test, public TemplateDialogs
{
};

std::wstring TextOf(HWND window);
std::wstring ClassOf(HWND window);

// A control's number; 0xFFFF for one without.
int NumberOf(HWND control);

// Whether one rectangle lies inside the other.
bool Holds(const RECT& outer, const RECT& inner);

SIZE TextSizeIn(const LOGFONTW& font, const std::wstring& text);

// The size in a window's own font, or in that font at another weight.
SIZE TextSize(HWND window, const std::wstring& text, LONG weight = FW_NORMAL);

// The size in the font of headings, which is 16 pixels high and that of the report too.
SIZE HeadingTextSize(const std::wstring& text, LONG weight = FW_NORMAL);

RECT TextRect(POINT place, SIZE size);

int Width(const RECT& place);
int Height(const RECT& place);
