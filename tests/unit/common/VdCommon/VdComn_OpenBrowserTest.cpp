#include "common/VdCommon/VdComn_OpenBrowser.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <type_traits>
#include <vector>

namespace
{

struct Call
{
    std::wstring verb;
    std::wstring file;
    std::wstring argument;
    std::wstring folder;
    int show;
};

std::vector<Call> g_calls;
std::vector<std::intptr_t> g_results; // one for each call to come

HINSTANCE WINAPI Execute(HWND, LPCWSTR verb, LPCWSTR file, LPCWSTR argument, LPCWSTR folder, INT show)
{
    g_calls.push_back(
        {verb, file, argument == nullptr ? L"(none)" : argument, folder == nullptr ? L"(none)" : folder, show});
    return reinterpret_cast<HINSTANCE>(g_results.at(g_calls.size() - 1));
}

bool Open(const std::wstring& address, std::vector<std::intptr_t> results)
{
    g_calls.clear();
    g_results = std::move(results);
    return VdCommon::OpenWebPage(address, Execute);
}

TEST(OpenBrowser, EmptyAddressOpensNothing)
{
    EXPECT_FALSE(Open(L"", {}));
    EXPECT_TRUE(g_calls.empty());
}

TEST(OpenBrowser, InternetExplorerGetsTheAddressInANormalWindow)
{
    EXPECT_TRUE(Open(L"http://example.org/?a=1", {33}));
    ASSERT_EQ(g_calls.size(), 1u);
    EXPECT_EQ(g_calls[0].file, L"iexplore.exe");
    EXPECT_EQ(g_calls[0].argument, L"http://example.org/?a=1");
    EXPECT_EQ(g_calls[0].show, 1);
}

TEST(OpenBrowser, ResultOf32IsAFailureAndTheAddressItselfIsOpened)
{
    EXPECT_TRUE(Open(L"http://example.org/", {32, 42}));
    ASSERT_EQ(g_calls.size(), 2u);
    EXPECT_EQ(g_calls[1].verb, L"open");
    EXPECT_EQ(g_calls[1].file, L"http://example.org/");
    EXPECT_EQ(g_calls[1].argument, L"(none)");
    EXPECT_EQ(g_calls[1].show, 1);
}

// Both were started without a folder, so that a program of the browser's name in the current one came first.
TEST(OpenBrowser, TheBrowserStartsInTheSystemsFolder)
{
    wchar_t folder[MAX_PATH] = {};
    ASSERT_NE(GetSystemDirectoryW(folder, MAX_PATH), 0u);
    EXPECT_TRUE(Open(L"http://example.org/", {2, 42}));
    ASSERT_EQ(g_calls.size(), 2u);
    EXPECT_EQ(g_calls[0].folder, folder);
    EXPECT_EQ(g_calls[1].folder, folder);
}

TEST(OpenBrowser, SystemWithoutInternetExplorerAndBrowserGivesFalse)
{
    EXPECT_FALSE(Open(L"http://example.org/", {2, 31}));
    EXPECT_EQ(g_calls.size(), 2u);
}

TEST(OpenBrowser, ObjectHasADestructorAlone)
{
    static_assert(std::has_virtual_destructor_v<VdCommon::VdOpenBrowser>);
    static_assert(sizeof(VdCommon::VdOpenBrowser) == sizeof(void*));
}

} // namespace
