#pragma once

// The dialog framework: windows, dialogs, message maps, controls and drawing objects, as far as this program uses them.
// Its conventions:
//
// Messages. A class states in its Map() which messages, commands and notifications it handles, one row each, and names
//   its base's Map after them. Handlers get decoded values. A row of a class hides its bases' rows for the same
//   message; a handler reaches a base's handler by calling it by name.
// Handled. A message with a row is handled: nothing else runs unless the handler calls Default(), which runs what comes
//   after the handler and returns its result. A message without a row reaches the window's own procedure unchanged.
// Order. WM_COMMAND, WM_NOTIFY and WM_DRAWITEM go to the reflected rows of the control that sent them, then to the rows
//   of the window that got them, then to default treatment. WM_CTLCOLOR... goes to the window's rows first, then to the
//   control's. A command that no window answers goes to CWinApp::OnCommand.
// Telling and asking. A handler that returns void is told something, and the message's result is 0 (TRUE for
//   WM_DRAWITEM). One that returns something is asked: BOOL where the system asks, TRUE meaning "done, go no further".
//   Our own functions answer with bool: true is success.
// Owners. An object owns a window only if it created it, and then destroys it when it goes. A window that it only
//   subclasses stays whole and is left. When a window dies first (WM_NCDESTROY), the object goes on without one. Both
//   may happen inside a handler of that very object; a handler that has destroyed its object touches it no more.
//   An object's destructor runs when the derived parts are gone: a class that must see WM_DESTROY lets its window go
//   first, as the parent's window or DoModal does.
// Beginnings. PreSubclassWindow runs first, then the object sees messages. A dialog's object is joined to its window
//   at WM_INITDIALOG and does not see earlier ones: first PreSubclassWindow, then DoDataExchange, then OnInitDialog.
// Exceptions. None leaves a window procedure: it is reported through CWinApp::OnHandlerException, and the message then
//   has the result 0. CAtlException and CInvalidArgException are thrown by value.
// Threads. Everything here belongs to the one user-interface thread.
// Texts are std::wstring; handles of windows stay HWND. <windowsx.h> is not to be included: its macros take the names
//   of members.

#include "platform/dialog/ComAdvise.h"
#include "platform/dialog/ComPtr.h"
#include "platform/dialog/Controls.h"
#include "platform/dialog/DeviceContext.h"
#include "platform/dialog/Dialog.h"
#include "platform/dialog/Exceptions.h"
#include "platform/dialog/FileDialog.h"
#include "platform/dialog/FindTextDialog.h"
#include "platform/dialog/GdiObjects.h"
#include "platform/dialog/IconResource.h"
#include "platform/dialog/ImageList.h"
#include "platform/dialog/ModuleState.h"
#include "platform/dialog/Ole.h"
#include "platform/dialog/OleDateTime.h"
#include "platform/dialog/ResourceText.h"
#include "platform/dialog/Semaphore.h"
#include "platform/dialog/SystemLibrary.h"
#include "platform/dialog/UniqueHandle.h"
#include "platform/dialog/WinApp.h"
