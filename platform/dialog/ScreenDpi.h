#pragma once

// The dots an inch that the system lays its windows out for, asked once: it stays as it was when the program started.
// A program whose manifest does not say that it is aware of them has 96.
int AfxGetScreenDpi() noexcept;

// Lays out for another number from now on, as tests do; 0 asks the system again.
void AfxSetScreenDpi(int dpi) noexcept;
