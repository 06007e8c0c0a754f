#include "common/VdCommon/VdComn_Wow64FsRedir.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cwchar>
#include <string>

namespace
{

int g_loads = 0;
int g_refusals = 0;
DWORD g_refusal = 0;

// Refuses so many times, then loads.
HMODULE WINAPI RefusingLoad(const wchar_t* fileName)
{
    ++g_loads;
    if (g_loads <= g_refusals)
    {
        ::SetLastError(g_refusal);
        return nullptr;
    }
    return ::LoadLibraryW(fileName);
}

void RefuseLoads(int times, DWORD error)
{
    g_loads = 0;
    g_refusals = times;
    g_refusal = error;
}

std::wstring g_systemFolder;
int g_disabled = 0;
int g_reverted = 0;
void* g_revertedWith = nullptr;
BOOL g_answer = TRUE;

BOOL WINAPI FakeDisable(void** saved)
{
    ++g_disabled;
    *saved = &g_disabled;
    return g_answer;
}

BOOL WINAPI FakeRevert(void* saved)
{
    ++g_reverted;
    g_revertedWith = saved;
    return g_answer;
}

UINT WINAPI FakeSystemFolder(LPWSTR room, UINT)
{
    std::wcscpy(room, g_systemFolder.c_str());
    return static_cast<UINT>(g_systemFolder.size());
}

// A process under the 32-bit subsystem, as far as the object can tell.
class As32Bit : public CWow64FsRedir
{
public:
    As32Bit()
    {
        g_disabled = g_reverted = 0;
        g_revertedWith = nullptr;
        g_answer = TRUE;
        m_bIsWow64 = true;
        m_kernel32.m_pfnWow64DisableWow64FsRedirection = FakeDisable;
        m_kernel32.m_pfnWow64RevertWow64FsRedirection = FakeRevert;
        m_kernel32.m_pfnGetSystemWow64DirectoryW = FakeSystemFolder;
    }

    void BecomeNative() { m_bIsWow64 = false; }

    void LoseRevert() { m_kernel32.m_pfnWow64RevertWow64FsRedirection = nullptr; }

    HMODULE Library() const { return m_library.Module(); }
};

struct OpenRedirection : CWow64FsRedir
{
    using CWow64FsRedir::CWow64FsRedir;

    const VdCommon::Kernel32& Kernel() const { return m_kernel32; }

    HMODULE Library() const { return m_library.Module(); }
};

TEST(Wow64FsRedir, A64BitProcessIsNotRedirectedAndNothingIsSwitched)
{
    OpenRedirection redirection;
    EXPECT_FALSE(redirection.IsWow64());
    EXPECT_FALSE(redirection.LoadSystemLibrary(L"setupapi.dll"));
    EXPECT_FALSE(redirection.Disable());
    EXPECT_EQ(redirection.Library(), nullptr);
    EXPECT_NE(redirection.Kernel().m_pfnIsWow64Process, nullptr);
}

TEST(Wow64FsRedir, A64BitProcessAsksNoneOfTheFunctions)
{
    wchar_t folder[MAX_PATH] = {};
    ::GetSystemDirectoryW(folder, MAX_PATH);
    {
        As32Bit redirection;
        redirection.BecomeNative();
        g_systemFolder = folder;
        EXPECT_FALSE(redirection.LoadSystemLibrary(L"lz32.dll"));
        EXPECT_FALSE(redirection.Disable());
        EXPECT_EQ(redirection.Library(), nullptr);
    }
    EXPECT_EQ(g_disabled, 0);
    EXPECT_EQ(g_reverted, 0);
}

TEST(Wow64FsRedir, LoadRefusedWith1114IsTriedAgain)
{
    RefuseLoads(3, ERROR_DLL_INIT_FAILED);
    const OpenRedirection redirection(RefusingLoad);
    EXPECT_EQ(g_loads, 4);
    EXPECT_NE(redirection.Kernel().Module(), nullptr);
    EXPECT_NE(redirection.Kernel().m_pfnIsWow64Process, nullptr);
}

TEST(Wow64FsRedir, TriesAgainTenTimesAndNoMore)
{
    RefuseLoads(10, ERROR_DLL_INIT_FAILED);
    EXPECT_NE(OpenRedirection(RefusingLoad).Kernel().Module(), nullptr);
    EXPECT_EQ(g_loads, 11);

    RefuseLoads(1000, ERROR_DLL_INIT_FAILED);
    const OpenRedirection redirection(RefusingLoad);
    EXPECT_EQ(g_loads, 11);
    EXPECT_EQ(redirection.Kernel().Module(), nullptr);
    EXPECT_EQ(redirection.Kernel().m_pfnIsWow64Process, nullptr);
    EXPECT_FALSE(redirection.IsWow64());
}

TEST(Wow64FsRedir, WaitsTenMillisecondsBetweenTries)
{
    RefuseLoads(5, ERROR_DLL_INIT_FAILED);
    const auto start = std::chrono::steady_clock::now();
    const OpenRedirection redirection(RefusingLoad);
    const auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_GE(waited, std::chrono::milliseconds(40)); // five waits, each of which may end early by the clock's grain
}

TEST(Wow64FsRedir, OtherErrorEndsTheTries)
{
    RefuseLoads(1000, ERROR_MOD_NOT_FOUND);
    const OpenRedirection redirection(RefusingLoad);
    EXPECT_EQ(g_loads, 1);
    EXPECT_EQ(redirection.Kernel().Module(), nullptr);
}

TEST(Wow64FsRedir, RedirectionIsRestoredWithTheSavedValue)
{
    {
        As32Bit redirection;
        EXPECT_TRUE(redirection.Disable());
        EXPECT_TRUE(redirection.Disable());
        EXPECT_EQ(g_disabled, 1);
        EXPECT_EQ(g_reverted, 0);
    }
    EXPECT_EQ(g_reverted, 1);
    EXPECT_EQ(g_revertedWith, &g_disabled);
}

TEST(Wow64FsRedir, WhatWasNotSwitchedOffIsNotRestored)
{
    {
        As32Bit redirection;
        g_answer = FALSE;
        EXPECT_FALSE(redirection.Disable());
    }
    EXPECT_EQ(g_disabled, 1);
    EXPECT_EQ(g_reverted, 0);
}

TEST(Wow64FsRedir, EndsQuietlyWhereTheRestoringFunctionIsMissing)
{
    {
        As32Bit redirection;
        EXPECT_TRUE(redirection.Disable());
        redirection.LoseRevert();
    }
    EXPECT_EQ(g_reverted, 0);
}

TEST(Wow64FsRedir, LibraryComesFromTheSystemsFolderWithAndWithoutBackslash)
{
    wchar_t folder[MAX_PATH] = {};
    ::GetSystemDirectoryW(folder, MAX_PATH);
    for (const wchar_t* const end : {L"", L"\\"})
    {
        As32Bit redirection;
        g_systemFolder = std::wstring(folder) + end;
        EXPECT_TRUE(redirection.LoadSystemLibrary(L"lz32.dll"));
        EXPECT_EQ(redirection.Library(), ::GetModuleHandleW(L"lz32.dll"));
    }
    EXPECT_EQ(::GetModuleHandleW(L"lz32.dll"), nullptr);
}

TEST(Wow64FsRedir, LibraryThatTheFolderLacksIsNotLoaded)
{
    As32Bit redirection;
    g_systemFolder = L"C:\\no such folder";
    EXPECT_FALSE(redirection.LoadSystemLibrary(L"lz32.dll"));
    g_systemFolder.clear();
    EXPECT_FALSE(redirection.LoadSystemLibrary(L"lz32.dll"));
    EXPECT_EQ(redirection.Library(), nullptr);
}

} // namespace
