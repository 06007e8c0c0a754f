#include "tests/support/MessageBoxRecorder.h"

#include "tests/support/FaultPoints.h"

extern "C" decltype(&::MessageBoxW) __imp_MessageBoxW;

MessageBoxRecorder* MessageBoxRecorder::s_current = nullptr;

MessageBoxRecorder::MessageBoxRecorder(int answer) : m_answer(answer), m_patch(__imp_MessageBoxW, &Record)
{
    s_current = this;
}

MessageBoxRecorder::~MessageBoxRecorder()
{
    s_current = nullptr;
}

int WINAPI MessageBoxRecorder::Record(HWND owner, LPCWSTR text, LPCWSTR caption, UINT flags)
{
    const FaultPoints::Pause pause;
    s_current->m_arrBox.push_back({text, caption, flags, owner});
    if (s_current->m_onBox)
    {
        s_current->m_onBox();
    }
    return s_current->m_answer;
}
