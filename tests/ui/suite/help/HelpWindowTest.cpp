// The built help file, opened with the platform's own help viewer. Where the platform has no HTML engine the page stays
// empty; the window, its contents and the way from a number to a page are there all the same.

#include "framework/ui/kestrix/app/Help.h"
#include "framework/ui/kestrix/logs/LogKinds.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>
#include <htmlhelp.h>

#include <filesystem>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

constexpr wchar_t HelpTitle[] = L"Kestrix Help " KESTRIX_VERSION;

class HelpWindowTest : public ::testing::Test
{
protected:
    using HtmlHelpFunction = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);

    // By its full path, since a stand-in may lie beside the tests.
    static HtmlHelpFunction LoadHelpViewer()
    {
        wchar_t folder[MAX_PATH] = {};
        GetSystemDirectoryW(folder, MAX_PATH);
        const HMODULE library = LoadLibraryW((std::wstring(folder) + L"\\hhctrl.ocx").c_str());
        if (!library)
        {
            throw std::runtime_error("the platform has no help viewer");
        }
        return reinterpret_cast<HtmlHelpFunction>(reinterpret_cast<void*>(GetProcAddress(library, "HtmlHelpW")));
    }

    // Not DestroyWindow, which leaves the help viewer with a window that it takes for open.
    void TearDown() override { m_open(nullptr, nullptr, HH_CLOSE_ALL, 0); }

    HWND Open(UINT command, DWORD_PTR argument) const
    {
        return m_open(GetDesktopWindow(), m_path.c_str(), command, argument);
    }

    static std::wstring Title(HWND window)
    {
        wchar_t title[100] = {};
        GetWindowTextW(window, title, 100);
        return title;
    }

    // The number of lines in each tree below the window: contents and index.
    static std::vector<LRESULT> TreeSizes(HWND window)
    {
        std::vector<LRESULT> sizes;
        EnumChildWindows(
            window,
            [](HWND child, LPARAM found)
            {
                wchar_t name[50] = {};
                GetClassNameW(child, name, 50);
                if (name == std::wstring(WC_TREEVIEWW))
                {
                    reinterpret_cast<std::vector<LRESULT>*>(found)->push_back(SendMessageW(child, TVM_GETCOUNT, 0, 0));
                }
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&sizes));
        return sizes;
    }

    const std::wstring m_path = std::filesystem::absolute(L"vdhelp.chm").wstring();
    const HtmlHelpFunction m_open = LoadHelpViewer();
};

TEST_F(HelpWindowTest, EveryNumberThatTheViewerAsksForOpensAWindow)
{
    std::set<DWORD_PTR> numbers = {HelpNumberOfReport};
    for (const LogKind& kind : LogKinds())
    {
        numbers.insert({kind.help, kind.helpBesideReport});
    }
    numbers.erase(0); // none
    for (const DWORD_PTR number : numbers)
    {
        const HWND window = Open(HH_HELP_CONTEXT, number);
        EXPECT_TRUE(IsWindowVisible(window)) << number;
        EXPECT_EQ(Title(window), HelpTitle) << number;
    }
}

TEST_F(HelpWindowTest, AnotherNumberOpensNoWindow)
{
    EXPECT_EQ(Open(HH_HELP_CONTEXT, 999), nullptr);
}

TEST_F(HelpWindowTest, NoNumberOpensTheFirstTopic)
{
    const HWND window = Open(HH_DISPLAY_TOPIC, 0);
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_EQ(Title(window), HelpTitle);
}

TEST_F(HelpWindowTest, TheContentsHoldEveryTopic)
{
    const std::vector<LRESULT> sizes = TreeSizes(Open(HH_HELP_CONTEXT, 211));
    ASSERT_FALSE(sizes.empty());
    constexpr std::ptrdiff_t topicsOfNoLog = 11;
    EXPECT_EQ(sizes.front(), std::ssize(LogKinds()) + topicsOfNoLog);
}

} // namespace
