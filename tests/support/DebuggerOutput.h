#pragma once

#include <windows.h>

#include <string>
#include <vector>

// What this process sends to the debugger output while the object lives; one object at a time. The system raises an
// exception for each text, which a debugger takes first, and this object where there is none.
class DebuggerOutput
{
public:
    DebuggerOutput() : m_handler(AddVectoredExceptionHandler(1, &Take)) { s_texts.clear(); }

    ~DebuggerOutput() { RemoveVectoredExceptionHandler(m_handler); }

    DebuggerOutput(const DebuggerOutput&) = delete;
    DebuggerOutput& operator=(const DebuggerOutput&) = delete;

    // Letters beyond ASCII come as '?'.
    const std::vector<std::string>& Texts() const { return s_texts; }

private:
    // The number of characters with the terminator, then the text.
    static constexpr DWORD Narrow = 0x40010006; // DBG_PRINTEXCEPTION_C
    static constexpr DWORD Wide = 0x4001000A;   // DBG_PRINTEXCEPTION_WIDE_C, followed by the narrow one if not taken

    static LONG CALLBACK Take(EXCEPTION_POINTERS* exception)
    {
        const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
        if (record.ExceptionCode == Wide)
        {
            std::string text;
            for (auto* letter = reinterpret_cast<const wchar_t*>(record.ExceptionInformation[1]); *letter; ++letter)
            {
                text += *letter < 0x80 ? static_cast<char>(*letter) : '?';
            }
            s_texts.push_back(text);
            return EXCEPTION_CONTINUE_EXECUTION;
        }
        if (record.ExceptionCode == Narrow)
        {
            s_texts.emplace_back(reinterpret_cast<const char*>(record.ExceptionInformation[1]));
            return EXCEPTION_CONTINUE_EXECUTION;
        }
        return EXCEPTION_CONTINUE_SEARCH;
    }

    inline static std::vector<std::string> s_texts;
    void* m_handler;
};
