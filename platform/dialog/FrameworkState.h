#pragma once

#include "platform/dialog/OleMessageFilter.h"
#include "platform/dialog/UniqueHandle.h"

#include <windows.h>

#include <array>
#include <memory>
#include <string>
#include <unordered_map>

class CWinApp;
class WindowSubclass;

// A window that has our procedure, and its own after it.
struct SubclassedWindow
{
    WNDPROC original = nullptr;
    WindowSubclass* subclass = nullptr; // not owned; null when the object has gone and our procedure could not
};

// What the framework keeps for the process, in one place. Used by the framework's own sources alone.
struct FrameworkState
{
    // Sixteen texts lie together in a resource module, and are read together.
    static constexpr std::size_t TextsPerBlock = 16;
    using TextBlock = std::array<std::wstring, TextsPerBlock>;

    HMODULE hResource = nullptr;                                                // null: the program's own module
    std::array<std::unique_ptr<TextBlock>, 0x10000 / TextsPerBlock> textBlocks; // null: not read yet
    std::wstring strNoText;

    std::unordered_map<HWND, SubclassedWindow> subclassedWindows;

    std::array<UniqueMemoryDC, 4> spareMemoryDCs; // as they were created; as many as are in use at once while painting

    int screenDpi = 0; // 0: not asked for yet

    CWinApp* pApp = nullptr; // not owned
    bool bOleOpen = false;   // AfxOleInit is to be undone
    COleMessageFilter oleMessageFilter;
    bool bReportShown = false; // a box with an exception's text stands
};

FrameworkState& GetFrameworkState() noexcept;
