#pragma once

#include "platform/dialog/MessageShapes.h"

// How a message is decoded: one of the shapes. A message with no entry below hands over both arguments as they are.
template <UINT message>
struct MessageTraits
{
    using Signature = LRESULT(WPARAM wParam, LPARAM lParam);

    static LRESULT Call(auto handler, const WindowMessage& m) { return handler(m.wParam, m.lParam); }
};

// A message that a window reflects to the control that it tells about; only those with an entry below are.
template <UINT message>
struct ReflectedMessageTraits;

// clang-format off
template <> struct MessageTraits<WM_PAINT> : MessageShapes::NoArguments {};
template <> struct MessageTraits<WM_CLOSE> : MessageShapes::NoArguments {};
template <> struct MessageTraits<WM_DESTROY> : MessageShapes::NoArguments {};
template <> struct MessageTraits<WM_NCDESTROY> : MessageShapes::NoArguments {};
template <> struct MessageTraits<WM_MOUSELEAVE> : MessageShapes::NoArguments {};
template <> struct MessageTraits<WM_MOUSEMOVE> : MessageShapes::Mouse {};
template <> struct MessageTraits<WM_MOUSEHOVER> : MessageShapes::Mouse {};
template <> struct MessageTraits<WM_LBUTTONDOWN> : MessageShapes::Mouse {};
template <> struct MessageTraits<WM_LBUTTONUP> : MessageShapes::Mouse {};
template <> struct MessageTraits<WM_LBUTTONDBLCLK> : MessageShapes::Mouse {};
template <> struct MessageTraits<WM_KEYDOWN> : MessageShapes::Key {};
template <> struct MessageTraits<WM_KEYUP> : MessageShapes::Key {};
template <> struct MessageTraits<WM_CHAR> : MessageShapes::Key {};
template <> struct MessageTraits<WM_SETFOCUS> : MessageShapes::OtherWindow {};
template <> struct MessageTraits<WM_KILLFOCUS> : MessageShapes::OtherWindow {};
template <> struct MessageTraits<WM_PALETTECHANGED> : MessageShapes::OtherWindow {};
template <> struct MessageTraits<WM_CTLCOLORMSGBOX> : MessageShapes::ControlColor {};
template <> struct MessageTraits<WM_CTLCOLOREDIT> : MessageShapes::ControlColor {};
template <> struct MessageTraits<WM_CTLCOLORLISTBOX> : MessageShapes::ControlColor {};
template <> struct MessageTraits<WM_CTLCOLORBTN> : MessageShapes::ControlColor {};
template <> struct MessageTraits<WM_CTLCOLORDLG> : MessageShapes::ControlColor {};
template <> struct MessageTraits<WM_CTLCOLORSCROLLBAR> : MessageShapes::ControlColor {};
template <> struct MessageTraits<WM_CTLCOLORSTATIC> : MessageShapes::ControlColor {};
template <> struct MessageTraits<WM_SIZE> : MessageShapes::Size {};
template <> struct MessageTraits<WM_ERASEBKGND> : MessageShapes::EraseBackground {};
template <> struct MessageTraits<WM_SETCURSOR> : MessageShapes::SetCursor {};
template <> struct MessageTraits<WM_ENABLE> : MessageShapes::Enable {};
template <> struct MessageTraits<WM_CONTEXTMENU> : MessageShapes::ContextMenu {};
template <> struct MessageTraits<WM_TIMER> : MessageShapes::Timer {};
template <> struct MessageTraits<WM_QUERYDRAGICON> : MessageShapes::QueryDragIcon {};
template <> struct MessageTraits<WM_DRAWITEM> : MessageShapes::DrawItem {};
template <> struct MessageTraits<WM_SETTEXT> : MessageShapes::SetText {};
template <> struct MessageTraits<WM_QUERYNEWPALETTE> : MessageShapes::QueryNewPalette {};
template <> struct MessageTraits<WM_UPDATEUISTATE> : MessageShapes::UpdateUiState {};
template <> struct ReflectedMessageTraits<WM_CTLCOLOREDIT> : MessageShapes::ReflectedControlColor {};
template <> struct ReflectedMessageTraits<WM_CTLCOLORLISTBOX> : MessageShapes::ReflectedControlColor {};
template <> struct ReflectedMessageTraits<WM_CTLCOLORBTN> : MessageShapes::ReflectedControlColor {};
template <> struct ReflectedMessageTraits<WM_CTLCOLORSCROLLBAR> : MessageShapes::ReflectedControlColor {};
template <> struct ReflectedMessageTraits<WM_CTLCOLORSTATIC> : MessageShapes::ReflectedControlColor {};
template <> struct ReflectedMessageTraits<WM_DRAWITEM> : MessageShapes::ReflectedDrawItem {};

// clang-format on
