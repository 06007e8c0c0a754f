#pragma once

#include "platform/dialog/OleMessageFilter.h"

#include <windows.h>

// Opens the thread's apartment and gives it the message filter, once however often it is called. FALSE when the system
// refuses.
BOOL AfxOleInit();

// Closes what AfxOleInit opened; AfxWinMain does it after ExitInstance.
void AfxOleTerm() noexcept;

// The filter of the thread that called AfxOleInit.
COleMessageFilter& AfxOleGetMessageFilter() noexcept;
