#include "platform/dialog/MessageLoop.h"

#include "platform/dialog/Exceptions.h"
#include "platform/dialog/Wnd.h"

namespace
{

bool PreTranslate(MSG& message, HWND top)
{
    for (HWND window = message.hwnd; window != nullptr; window = ::GetParent(window))
    {
        CWnd* const object = CWnd::FromHandlePermanent(window);
        if (object != nullptr && object->PreTranslateMessage(message))
        {
            return true;
        }
        if (window == top)
        {
            break;
        }
    }
    return false;
}

void Treat(MSG& message, HWND top)
{
    try
    {
        if (PreTranslate(message, top))
        {
            return;
        }
    }
    catch (...)
    {
        ReportHandlerException(std::current_exception());
        return;
    }
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
}

} // namespace

bool RunMessageLoop(HWND top, const std::function<bool()>& isDone, int& exitCode)
{
    while (!isDone())
    {
        MSG message{};
        if (::GetMessageW(&message, nullptr, 0, 0) <= 0)
        {
            exitCode = static_cast<int>(message.wParam);
            return false;
        }
        Treat(message, top);
    }
    return true;
}
