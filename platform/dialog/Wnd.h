#pragma once

#include "platform/dialog/MessageMap.h"
#include "platform/dialog/Window.h"
#include "platform/dialog/WindowSubclass.h"

class MessageFrame;

// A window with an object that sees its messages. The conventions stand on top of DialogFramework.h.
class CWnd : public CWindow
{
public:
    CWnd() = default;
    virtual ~CWnd();
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    // Attaches the object to a window that somebody else owns; PreSubclassWindow runs first, and messages come from
    // then on. False when the object has a window, the window has an object, or it is no window of this thread.
    bool SubclassWindow(HWND window);

    bool SubclassDlgItem(int id, HWND parent) { return SubclassWindow(::GetDlgItem(parent, id)); }

    // Lends the object a window without its messages: a second name for a window that has an object already, or needs
    // none. The caller sees to it that the window outlives the use. Does nothing when the object has a window.
    void Attach(HWND window);

    // Parts object and window, whatever joined them, and returns the window, whose owner is the caller if it was
    // created.
    HWND Detach();

    // Makes a window of this system class that the object owns and sees; rect in the parent's client coordinates.
    bool Create(const wchar_t* className, const std::wstring& text, DWORD style, const RECT& rect, HWND parent, int id,
                DWORD exStyle = 0);

    // Ends the window, also one that the object only sees. False when there is none.
    bool DestroyWindow();

    // The object that sees this window's messages; null when there is none.
    static CWnd* FromHandlePermanent(HWND window) noexcept;

    // Asked by the message loop before a message for this window or one below it is dispatched. TRUE: it is dealt with.
    virtual BOOL PreTranslateMessage(MSG& message);

protected:
    static const MessageMap& Map();

    virtual const MessageMap& GetMessageMap() const { return Map(); }

    // The window is known and its messages do not come yet: the place for styles and for controls inside this one.
    virtual void PreSubclassWindow() {}

    // Runs the message's rows and default treatment. An override calls the base's for what it leaves alone.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);

    // For handlers: runs what comes after this handler for the message being handled, with the message's own
    // arguments, and returns its result. 0 outside of a handler.
    LRESULT Default();

    // For classes whose window the system makes: from now on the object destroys it when it goes.
    void OwnWindow() { m_bOwned = true; }

private:
    friend class MessageChain;
    friend class MessageFrame;

    static LRESULT HandleMessage(void* owner, HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    WindowSubclass m_Subclass;
    bool m_bOwned = false;
    MessageFrame* m_pFrame = nullptr; // the handler of this object that runs now, the innermost first
};
