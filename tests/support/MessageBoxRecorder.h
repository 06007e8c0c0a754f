#pragma once

#include "tests/support/ImportPatch.h"

#include <string>
#include <vector>

// Answers every message box of this program at once, for the life of the object, and keeps what it would have shown.
class MessageBoxRecorder
{
public:
    struct Box
    {
        std::wstring text;
        std::wstring caption;
        UINT flags;
    };

    explicit MessageBoxRecorder(int answer = IDOK);
    ~MessageBoxRecorder();

    const std::vector<Box>& Boxes() const { return m_arrBox; }

private:
    static int WINAPI Record(HWND owner, LPCWSTR text, LPCWSTR caption, UINT flags);

    static MessageBoxRecorder* s_current;

    const int m_answer;
    std::vector<Box> m_arrBox;
    ImportPatch<decltype(&::MessageBoxW)> m_patch;
};
