#pragma once

class CWindow;

// Takes the keyboard to the fallback, a window of the page, when what has it in the form has gone, is disabled or takes
// no keys. While another window has the keyboard nothing is to be done: the form asks again when it comes back.
void KeepFocusUsable(const CWindow& page, CWindow& fallback);
