#pragma once

#include "tests/support/ImportPatch.h"

#include <windows.h>

#include <shellapi.h>

#include <string>
#include <vector>

extern "C" decltype(&::ShellExecuteW) __imp_ShellExecuteW;

// Keeps what this program would start through the shell, for the life of the object; one at a time.
class StartRecorder
{
public:
    struct Start
    {
        std::wstring verb;
        std::wstring file;
        std::wstring arguments;
        int show;

        friend bool operator==(const Start&, const Start&) = default;
    };

    StartRecorder() : m_patch(__imp_ShellExecuteW, &Record) { s_current = this; }

    ~StartRecorder() { s_current = nullptr; }

    StartRecorder(const StartRecorder&) = delete;
    StartRecorder& operator=(const StartRecorder&) = delete;

    const std::vector<Start>& Starts() const { return m_starts; }

    // What the programs were given, one after the other.
    std::vector<std::wstring> Arguments() const
    {
        std::vector<std::wstring> arguments;
        for (const Start& start : m_starts)
        {
            arguments.push_back(start.arguments);
        }
        return arguments;
    }

    void Clear() { m_starts.clear(); }

    INT_PTR m_nResult = 33; // what the shell answers; above 32 is success

private:
    static HINSTANCE WINAPI Record(HWND, const wchar_t* verb, const wchar_t* file, const wchar_t* arguments,
                                   const wchar_t*, int show)
    {
        const auto textOf = [](const wchar_t* text) { return text != nullptr ? std::wstring(text) : std::wstring(); };
        s_current->m_starts.push_back({textOf(verb), textOf(file), textOf(arguments), show});
        return reinterpret_cast<HINSTANCE>(s_current->m_nResult);
    }

    inline static StartRecorder* s_current = nullptr;

    std::vector<Start> m_starts;
    ImportPatch<decltype(&::ShellExecuteW)> m_patch;
};
