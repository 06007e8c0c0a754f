#pragma once

#include <windows.h>

// Opens the thread's apartment, once however often it is called. FALSE when the system refuses.
BOOL AfxOleInit();

// Closes what AfxOleInit opened; AfxWinMain does it behind ExitInstance.
void AfxOleTerm() noexcept;
