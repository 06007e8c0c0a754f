#pragma once

#include <windows.h>

#include <commctrl.h>

// Makes the classes of list views, headers and the like known to this program, as the product does when it starts.
inline void RegisterCommonControls()
{
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
}
