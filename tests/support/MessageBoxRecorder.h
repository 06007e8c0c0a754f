#pragma once

#include "tests/support/ImportPatch.h"

#include <functional>
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
        HWND owner;
    };

    explicit MessageBoxRecorder(int answer = IDOK);
    ~MessageBoxRecorder();

    // From now on.
    void Answer(int answer) { m_answer = answer; }

    std::function<void()> m_onBox; // runs while a box would stand

    const std::vector<Box>& Boxes() const { return m_arrBox; }

private:
    static int WINAPI Record(HWND owner, LPCWSTR text, LPCWSTR caption, UINT flags);

    static MessageBoxRecorder* s_current;

    int m_answer;
    std::vector<Box> m_arrBox;
    ImportPatch<decltype(&::MessageBoxW)> m_patch;
};
