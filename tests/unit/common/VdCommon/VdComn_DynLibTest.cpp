#include "common/VdCommon/VdComn_DynLib.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

using VdCommon::DynLib;
using VdCommon::Kernel32;

// A small library that the test program itself does not need, so that its unloading can be seen.
constexpr wchar_t SpareLibrary[] = L"lz32.dll";

bool IsSpareLoaded()
{
    return ::GetModuleHandleW(SpareLibrary) != nullptr;
}

class Borrowing : public DynLib
{
public:
    explicit Borrowing(HMODULE module) { m_hModule = module; }
};

TEST(DynLib, IsEmptyAtFirst)
{
    DynLib library;
    EXPECT_EQ(library.Module(), nullptr);
    EXPECT_FALSE(library.IsBound());
    EXPECT_FALSE(library.Bind(true));
    EXPECT_FALSE(library.IsBound());
}

TEST(DynLib, OwnsWhatItLoaded)
{
    ASSERT_FALSE(IsSpareLoaded());
    {
        DynLib library;
        std::uint32_t error = 1;
        EXPECT_TRUE(library.Load(SpareLibrary, &error));
        EXPECT_EQ(error, 0u);
        EXPECT_TRUE(IsSpareLoaded());
        EXPECT_TRUE(library.Bind(true));
        EXPECT_TRUE(library.IsBound());
    }
    EXPECT_FALSE(IsSpareLoaded());
}

TEST(DynLib, UnloadForgetsModuleAndBinding)
{
    DynLib library;
    ASSERT_TRUE(library.Load(SpareLibrary));
    library.Bind(true);
    library.Unload();
    EXPECT_FALSE(IsSpareLoaded());
    EXPECT_EQ(library.Module(), nullptr);
    EXPECT_FALSE(library.IsBound());
    library.Unload();
    EXPECT_TRUE(library.Load(SpareLibrary));
}

TEST(DynLib, LeavesAModuleThatIsNotItsOwn)
{
    DynLib owner;
    ASSERT_TRUE(owner.Load(SpareLibrary));
    Borrowing(owner.Module()).Unload();
    EXPECT_TRUE(IsSpareLoaded());
}

TEST(DynLib, SecondLoadFailsWith5010)
{
    DynLib library;
    std::uint32_t error = 0;
    ASSERT_TRUE(library.Load(SpareLibrary));
    EXPECT_FALSE(library.Load(L"kernel32.dll", &error));
    EXPECT_EQ(error, 5010u);
}

TEST(DynLib, MissingFileGivesThePlatformsError)
{
    DynLib library;
    std::uint32_t error = 0;
    EXPECT_FALSE(library.Load(L"no-such-library.dll", &error));
    EXPECT_EQ(error, 126u);
    EXPECT_EQ(library.Module(), nullptr);
}

TEST(Kernel32, BindsWhatThisSystemHas)
{
    Kernel32 kernel;
    ASSERT_TRUE(kernel.Load(L"kernel32.dll"));
    kernel.Bind(true);
    EXPECT_NE(kernel.m_pfnIsWow64Process, nullptr);
    EXPECT_NE(kernel.m_pfnWow64DisableWow64FsRedirection, nullptr);
    EXPECT_NE(kernel.m_pfnWow64RevertWow64FsRedirection, nullptr);
    EXPECT_NE(kernel.m_pfnGetSystemWow64DirectoryA, nullptr);
    EXPECT_NE(kernel.m_pfnGetSystemWow64DirectoryW, nullptr);
}

TEST(Kernel32, IsBoundOnlyWithEveryFunction)
{
    Kernel32 kernel;
    ASSERT_TRUE(kernel.Load(L"kernel32.dll"));
    const bool all = kernel.Bind(true);
    EXPECT_EQ(all, kernel.m_pfnRegisterServiceProcess != nullptr); // the one that systems differ in
    EXPECT_EQ(kernel.IsBound(), all);
}

TEST(Kernel32, MissingFunctionLeavesItUnboundAndTheOthersAreLookedUp)
{
    Kernel32 kernel;
    ASSERT_TRUE(kernel.Load(L"kernelbase.dll")); // has all but the first
    EXPECT_FALSE(kernel.Bind(true));
    EXPECT_EQ(kernel.m_pfnRegisterServiceProcess, nullptr);
    EXPECT_NE(kernel.m_pfnIsWow64Process, nullptr);
    EXPECT_NE(kernel.m_pfnGetSystemWow64DirectoryW, nullptr);
    EXPECT_FALSE(kernel.IsBound());
}

TEST(Kernel32, UnbindingZeroesThePointers)
{
    Kernel32 kernel;
    ASSERT_TRUE(kernel.Load(L"kernel32.dll"));
    kernel.Bind(true);
    EXPECT_TRUE(kernel.Bind(false));
    EXPECT_EQ(kernel.m_pfnIsWow64Process, nullptr);
    EXPECT_EQ(kernel.m_pfnGetSystemWow64DirectoryW, nullptr);
    EXPECT_FALSE(kernel.IsBound());
}

TEST(Kernel32, WithoutALibraryNothingIsBound)
{
    Kernel32 kernel;
    EXPECT_FALSE(kernel.Bind(true));
    EXPECT_EQ(kernel.m_pfnIsWow64Process, nullptr);
    EXPECT_FALSE(kernel.IsBound());
}

} // namespace
