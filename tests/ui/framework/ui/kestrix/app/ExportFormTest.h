#pragma once

#include "resource/resource.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/SaveDialogDouble.h"
#include "tests/ui/framework/ui/kestrix/app/FormTest.h"

#include <filesystem>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

extern "C" decltype(&::SetFocus) __imp_SetFocus;

// Keeps every window that this program gives the focus to, whether or not another program is in front.
class FocusRecorder
{
public:
    FocusRecorder() : m_patch(__imp_SetFocus, &Record) { s_windows.clear(); }

    static std::vector<HWND> Windows() { return s_windows; }

private:
    static HWND WINAPI Record(HWND window)
    {
        s_windows.push_back(window);
        return nullptr;
    }

    inline static std::vector<HWND> s_windows;

    ImportPatch<decltype(&::SetFocus)> m_patch;
};

// A form whose Export button is pressed, with the save dialog answered.
class ExportFormTest : public FormTest
{
protected:
    // Runs the form and presses Export in it.
    void Export(const std::function<void()>& before = [] {})
    {
        m_form.Run({[&]
                    {
                        before();
                        m_list = m_form.Page()->GetDlgItem(IDC_RECORD_LIST);
                        const FocusRecorder focus;
                        Press();
                        m_focus = FocusRecorder::Windows();
                    }});
    }

    void Press()
    {
        m_form.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_FORM_EXPORT, BN_CLICKED),
                           reinterpret_cast<LPARAM>(m_form.Item(IDC_FORM_EXPORT).GetSafeHwnd()));
    }

    std::vector<HWND> FocusOnTheList(std::size_t times) const { return std::vector<HWND>(times, m_list); }

    // The texts of the boxes that were shown.
    std::vector<std::wstring> Boxes() const
    {
        std::vector<std::wstring> texts;
        for (const MessageBoxRecorder::Box& box : m_boxes.Boxes())
        {
            texts.push_back(box.text);
        }
        return texts;
    }

    std::size_t FileCount() const
    {
        return static_cast<std::size_t>(std::distance(std::filesystem::recursive_directory_iterator(m_folder.Path()),
                                                      std::filesystem::recursive_directory_iterator()));
    }

    SaveDialogDouble m_dialog;
    const std::wstring m_path = m_folder.File(L"export.csv");
    std::vector<HWND> m_focus; // what the flow gave the focus to
    HWND m_list = nullptr;
};
