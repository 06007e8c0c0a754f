#include "platform/dialog/Clipboard.h"

#include "platform/dialog/UniqueHandle.h"

namespace
{

constexpr int Attempts = 10;
constexpr DWORD Pause = 20; // milliseconds

// Has the clipboard open as long as it lives, if nobody else has.
class OpenClipboardScope
{
public:
    explicit OpenClipboardScope(HWND owner)
    {
        for (int attempt = 1; !(m_bOpen = OpenClipboard(owner)) && attempt < Attempts; ++attempt)
        {
            Sleep(Pause);
        }
    }

    ~OpenClipboardScope()
    {
        if (m_bOpen)
        {
            CloseClipboard();
        }
    }

    OpenClipboardScope(const OpenClipboardScope&) = delete;
    OpenClipboardScope& operator=(const OpenClipboardScope&) = delete;

    explicit operator bool() const { return m_bOpen; }

private:
    bool m_bOpen = false;
};

// A copy of the text that ends in a null, in memory that the clipboard can take; null when there is none.
UniqueMemory CopyForClipboard(std::wstring_view text)
{
    UniqueMemory memory(GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, (text.size() + 1) * sizeof(wchar_t)));
    if (memory)
    {
        text.copy(static_cast<wchar_t*>(GlobalLock(memory.get())), text.size());
        GlobalUnlock(memory.get());
    }
    return memory;
}

} // namespace

bool PutTextOnClipboard(HWND owner, std::wstring_view text)
{
    UniqueMemory memory = CopyForClipboard(text);
    if (!memory)
    {
        return false;
    }
    const OpenClipboardScope clipboard(owner);
    if (!clipboard || !EmptyClipboard() || SetClipboardData(CF_UNICODETEXT, memory.get()) == nullptr)
    {
        return false;
    }
    static_cast<void>(memory.release()); // the clipboard owns it now
    return true;
}
