#include "platform/dialog/Exceptions.h"

#include "platform/dialog/FrameworkState.h"
#include "platform/dialog/WinApp.h"

#include <memory>

void AtlThrow(HRESULT hr)
{
    throw CAtlException(hr);
}

void AfxThrowInvalidArgException()
{
    throw CInvalidArgException();
}

namespace
{

struct LocalFreeMemory
{
    void operator()(wchar_t* memory) const noexcept { LocalFree(memory); }
};

// The system's text of a status code, without the line break at its end; the code itself where there is no text.
std::wstring TextOfStatus(HRESULT status)
{
    wchar_t* memory = nullptr;
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                       nullptr, static_cast<DWORD>(status), 0, reinterpret_cast<wchar_t*>(&memory), 0, nullptr);
    const std::unique_ptr<wchar_t, LocalFreeMemory> owner(memory);
    std::wstring text(memory != nullptr ? memory : L"", length);
    text.erase(text.find_last_not_of(L" \r\n") + 1);
    return text.empty() ? std::to_wstring(status) : text;
}

std::wstring Widen(const char* text)
{
    const int length = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text, -1, wide.data(), length);
    wide.resize(wide.empty() ? 0 : wide.size() - 1);
    return wide;
}

void WriteToDebugger(const std::wstring& text)
{
    OutputDebugStringW((L"exception left a handler: " + text + L"\n").c_str());
}

} // namespace

std::wstring ExceptionText(const std::exception_ptr& exception)
{
    try
    {
        std::rethrow_exception(exception);
    }
    catch (const CAtlException& status)
    {
        return TextOfStatus(status);
    }
    catch (const std::exception& standard)
    {
        return Widen(standard.what());
    }
    catch (...)
    {
        return TextOfStatus(E_UNEXPECTED);
    }
}

void ReportHandlerException(const std::exception_ptr& exception) noexcept
{
    try
    {
        if (CWinApp* const app = AfxGetApp())
        {
            app->OnHandlerException(exception);
        }
        else
        {
            ShowHandlerException(exception);
        }
    }
    catch (...)
    {
        OutputDebugStringW(L"the report of an exception failed\n");
    }
}

void ShowHandlerException(const std::exception_ptr& exception)
{
    const std::wstring text = ExceptionText(exception);
    WriteToDebugger(text);
    bool& shown = GetFrameworkState().bReportShown;
    if (!shown)
    {
        shown = true;
        AfxMessageBox(text, MB_OK | MB_ICONERROR);
        shown = false;
    }
}
