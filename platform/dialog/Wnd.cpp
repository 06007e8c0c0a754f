#include "platform/dialog/Wnd.h"

#include "platform/dialog/Exceptions.h"
#include "platform/dialog/MessageChain.h"
#include "platform/dialog/ModuleState.h"
#include "platform/dialog/UniqueHandle.h"

CWnd::~CWnd()
{
    if (m_pFrame != nullptr)
    {
        m_pFrame->ForgetObject();
        m_pFrame = nullptr;
    }
    if (m_bOwned)
    {
        DestroyWindow();
    }
    Detach();
}

const MessageMap& CWnd::Map()
{
    static constexpr auto rows = MessageRows();
    static constexpr MessageMap map{rows, nullptr};
    return map;
}

bool CWnd::SubclassWindow(HWND window)
{
    if (m_hWnd != nullptr || !::IsWindow(window) || FromHandlePermanent(window) != nullptr)
    {
        return false;
    }
    m_hWnd = window;
    try
    {
        PreSubclassWindow();
        if (m_Subclass.Install(window, &HandleMessage, this))
        {
            return true;
        }
    }
    catch (...)
    {
        m_hWnd = nullptr;
        throw;
    }
    m_hWnd = nullptr;
    return false;
}

void CWnd::Attach(HWND window)
{
    if (m_hWnd == nullptr)
    {
        m_hWnd = window;
    }
}

HWND CWnd::Detach()
{
    m_Subclass.Remove();
    m_bOwned = false;
    return std::exchange(m_hWnd, nullptr);
}

bool CWnd::Create(const wchar_t* className, const std::wstring& text, DWORD style, const RECT& rect, HWND parent,
                  int id, DWORD exStyle)
{
    if (m_hWnd != nullptr)
    {
        return false;
    }
    UniqueWindow window(::CreateWindowExW(
        exStyle, className, text.c_str(), style, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
        parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), AfxGetInstanceHandle(), nullptr));
    if (!SubclassWindow(window.get()))
    {
        return false;
    }
    OwnWindow();
    static_cast<void>(window.release());
    return true;
}

bool CWnd::DestroyWindow()
{
    const HWND window = m_hWnd;
    if (!m_Subclass.IsInstalled())
    {
        m_hWnd = nullptr; // nobody will tell that it is gone
    }
    return window != nullptr && ::DestroyWindow(window);
}

CWnd* CWnd::FromHandlePermanent(HWND window) noexcept
{
    return window != nullptr ? static_cast<CWnd*>(WindowSubclass::OwnerAt(window)) : nullptr;
}

BOOL CWnd::PreTranslateMessage(MSG&)
{
    return FALSE;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    return MessageChain::Run({m_hWnd, message, wParam, lParam}, MessageChain::Station::SenderFirst);
}

LRESULT CWnd::Default()
{
    return m_pFrame != nullptr ? m_pFrame->RunRest() : 0;
}

LRESULT CWnd::HandleMessage(void* owner, HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    auto& object = *static_cast<CWnd*>(owner);
    const WindowMessage whole{window, message, wParam, lParam};
    // For an override of WindowProc the rest of the message is all of it.
    const MessageFrame frame(object, whole, MessageChain::Station::SenderFirst);
    LRESULT result = 0;
    try
    {
        result = object.WindowProc(message, wParam, lParam);
    }
    catch (...)
    {
        ReportHandlerException(std::current_exception());
        if (message == WM_PAINT)
        {
            ::ValidateRect(window, nullptr); // else the system asks for the same failing paint again and again
        }
    }
    if (message == WM_NCDESTROY && frame.Object() != nullptr && object.m_hWnd == window)
    {
        object.Detach();
    }
    return result;
}
