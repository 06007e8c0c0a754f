#pragma once

#include "tests/support/FaultPoints.h"
#include "tests/support/ImportPatch.h"

#include <windows.h>

#include <commdlg.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

extern "C" decltype(&::GetSaveFileNameW) __imp_GetSaveFileNameW;

// Stands for the system's save dialog of this program, for the life of the object: gives the answers in turn and
// cancels when there is none left. What it was asked is kept. One at a time.
class SaveDialogDouble
{
public:
    struct Answer
    {
        std::wstring path;
        DWORD filterIndex = 1;
    };

    // What the program wanted, its texts copied.
    struct Request
    {
        HWND owner;
        std::wstring filter; // with its zeroes, up to the pair that ends it
        DWORD filterIndex;
        std::wstring name;
        DWORD room; // for the path, in characters
        std::wstring folder;
        std::wstring title;
        std::wstring defaultExtension;
        DWORD flags;
    };

    SaveDialogDouble() : m_patch(__imp_GetSaveFileNameW, &Show) { s_current = this; }

    ~SaveDialogDouble() { s_current = nullptr; }

    SaveDialogDouble(const SaveDialogDouble&) = delete;
    SaveDialogDouble& operator=(const SaveDialogDouble&) = delete;

    void AnswerWith(std::wstring path, DWORD filterIndex = 1) { m_answers.push_back({std::move(path), filterIndex}); }

    const std::vector<Request>& Requests() const { return m_requests; }

    std::function<void()> m_whileOpen = [] {};

private:
    static BOOL WINAPI Show(OPENFILENAMEW* choice)
    {
        const FaultPoints::Pause pause;
        return s_current->Answered(*choice);
    }

    static std::wstring TextOf(const wchar_t* text) { return text != nullptr ? text : L""; }

    static std::wstring FilterOf(const wchar_t* filter)
    {
        std::wstring all;
        for (const wchar_t* part = filter; part != nullptr && *part != L'\0'; part += std::wstring(part).size() + 1)
        {
            all.append(part).push_back(L'\0');
        }
        return all;
    }

    BOOL Answered(OPENFILENAMEW& choice)
    {
        m_requests.push_back({choice.hwndOwner, FilterOf(choice.lpstrFilter), choice.nFilterIndex,
                              TextOf(choice.lpstrFile), choice.nMaxFile, TextOf(choice.lpstrInitialDir),
                              TextOf(choice.lpstrTitle), TextOf(choice.lpstrDefExt), choice.Flags});
        m_whileOpen();
        if (m_answers.empty())
        {
            return FALSE;
        }
        const Answer answer = m_answers.front();
        m_answers.pop_front();
        choice.lpstrFile[answer.path.copy(choice.lpstrFile, choice.nMaxFile - 1)] = L'\0';
        choice.nFilterIndex = answer.filterIndex;
        return TRUE;
    }

    inline static SaveDialogDouble* s_current = nullptr;

    std::deque<Answer> m_answers;
    std::vector<Request> m_requests;
    ImportPatch<decltype(&::GetSaveFileNameW)> m_patch;
};
