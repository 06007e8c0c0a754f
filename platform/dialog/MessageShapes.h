#pragma once

#include <windows.h>

// One message on its way to the handlers of a window.
struct WindowMessage
{
    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

// The ways in which messages are decoded. Signature is what a handler must look like, Call decodes the arguments and
// turns the handler's result into that of the message.
namespace MessageShapes
{

struct NoArguments
{
    using Signature = void();

    static LRESULT Call(auto handler, const WindowMessage&)
    {
        handler();
        return 0;
    }
};

// The point lies in the window's client area; it is negative while the mouse is captured and outside.
struct Mouse
{
    using Signature = void(UINT keys, POINT point);

    static LRESULT Call(auto handler, const WindowMessage& m)
    {
        const auto x = static_cast<short>(LOWORD(m.lParam));
        const auto y = static_cast<short>(HIWORD(m.lParam));
        handler(static_cast<UINT>(m.wParam), POINT{x, y});
        return 0;
    }
};

struct Key
{
    using Signature = void(UINT key, UINT repeat, UINT flags);

    static LRESULT Call(auto handler, const WindowMessage& m)
    {
        handler(static_cast<UINT>(m.wParam), LOWORD(m.lParam), HIWORD(m.lParam));
        return 0;
    }
};

// The other window is null when it belongs to another thread.
struct OtherWindow
{
    using Signature = void(HWND other);

    static LRESULT Call(auto handler, const WindowMessage& m)
    {
        handler(reinterpret_cast<HWND>(m.wParam));
        return 0;
    }
};

// kind is CTLCOLOR_MSGBOX to CTLCOLOR_STATIC; the brush stays the owner's.
struct ControlColor
{
    using Signature = HBRUSH(HDC dc, HWND control, UINT kind);

    static LRESULT Call(auto handler, const WindowMessage& m)
    {
        return reinterpret_cast<LRESULT>(
            handler(reinterpret_cast<HDC>(m.wParam), reinterpret_cast<HWND>(m.lParam), m.message - WM_CTLCOLORMSGBOX));
    }
};

struct ReflectedControlColor
{
    using Signature = HBRUSH(HDC dc, UINT kind);

    static LRESULT Call(auto handler, const WindowMessage& m)
    {
        return reinterpret_cast<LRESULT>(handler(reinterpret_cast<HDC>(m.wParam), m.message - WM_CTLCOLORMSGBOX));
    }
};

// type is SIZE_RESTORED and so on; width and height are those of the client area.
struct Size
{
    using Signature = void(UINT type, int width, int height);

    static LRESULT Call(auto handler, const WindowMessage& m)
    {
        handler(static_cast<UINT>(m.wParam), LOWORD(m.lParam), HIWORD(m.lParam));
        return 0;
    }
};

// TRUE: the background is painted.
struct EraseBackground
{
    using Signature = BOOL(HDC dc);

    static LRESULT Call(auto handler, const WindowMessage& m) { return handler(reinterpret_cast<HDC>(m.wParam)); }
};

// TRUE: the cursor is set. window holds the pointer, hitTest is HTCLIENT and so on, mouse the message behind it.
struct SetCursor
{
    using Signature = BOOL(HWND window, UINT hitTest, UINT mouse);

    static LRESULT Call(auto handler, const WindowMessage& m)
    {
        return handler(reinterpret_cast<HWND>(m.wParam), LOWORD(m.lParam), HIWORD(m.lParam));
    }
};

struct Enable
{
    using Signature = void(bool enabled);

    static LRESULT Call(auto handler, const WindowMessage& m)
    {
        handler(m.wParam != 0);
        return 0;
    }
};

// The point is one of the screen; -1, -1 when the menu is asked for by a key.
struct ContextMenu
{
    using Signature = void(HWND window, POINT point);

    static LRESULT Call(auto handler, const WindowMessage& m)
    {
        const auto x = static_cast<short>(LOWORD(m.lParam));
        const auto y = static_cast<short>(HIWORD(m.lParam));
        handler(reinterpret_cast<HWND>(m.wParam), POINT{x, y});
        return 0;
    }
};

struct Timer
{
    using Signature = void(UINT_PTR timer);

    static LRESULT Call(auto handler, const WindowMessage& m)
    {
        handler(m.wParam);
        return 0;
    }
};

// The icon that stands for the minimised window, as a cursor handle; the window keeps it.
struct QueryDragIcon
{
    using Signature = HCURSOR();

    static LRESULT Call(auto handler, const WindowMessage&) { return reinterpret_cast<LRESULT>(handler()); }
};

// control is 0 for a menu.
struct DrawItem
{
    using Signature = void(int control, DRAWITEMSTRUCT& item);

    static LRESULT Call(auto handler, const WindowMessage& m)
    {
        handler(static_cast<int>(m.wParam), *reinterpret_cast<DRAWITEMSTRUCT*>(m.lParam));
        return TRUE;
    }
};

struct ReflectedDrawItem
{
    using Signature = void(DRAWITEMSTRUCT& item);

    static LRESULT Call(auto handler, const WindowMessage& m)
    {
        handler(*reinterpret_cast<DRAWITEMSTRUCT*>(m.lParam));
        return TRUE;
    }
};

// TRUE: the text is set; else what the kind of window documents.
struct SetText
{
    using Signature = LRESULT(const wchar_t* text);

    static LRESULT Call(auto handler, const WindowMessage& m)
    {
        return handler(reinterpret_cast<const wchar_t*>(m.lParam));
    }
};

// TRUE: the window realised its palette.
struct QueryNewPalette
{
    using Signature = BOOL();

    static LRESULT Call(auto handler, const WindowMessage&) { return handler(); }
};

// action is UIS_SET and so on, flags are UISF_HIDEFOCUS and so on.
struct UpdateUiState
{
    using Signature = void(UINT action, UINT flags);

    static LRESULT Call(auto handler, const WindowMessage& m)
    {
        handler(LOWORD(m.wParam), HIWORD(m.wParam));
        return 0;
    }
};

} // namespace MessageShapes
