#include "platform/dialog/SystemLibrary.h"

#include "platform/dialog/UniqueHandle.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <delayimp.h>

#include <filesystem>

namespace
{

std::filesystem::path SystemFolder()
{
    wchar_t folder[MAX_PATH] = {};
    ::GetSystemDirectoryW(folder, MAX_PATH);
    return folder;
}

std::filesystem::path PathOf(HMODULE library)
{
    wchar_t path[MAX_PATH] = {};
    ::GetModuleFileNameW(library, path, MAX_PATH);
    return path;
}

// A folder in which another library has the name of one of the system's, and which the search by a bare name comes to
// first, as it comes to the program's.
class SystemLibraryTest : public ::testing::Test
{
protected:
    SystemLibraryTest()
    {
        std::filesystem::copy_file(L"ui_dialog_other.mui", m_folder.File(SpareLibrary));
        ::SetDllDirectoryW(m_folder.Path().c_str());
    }

    ~SystemLibraryTest() override { ::SetDllDirectoryW(nullptr); }

    // A small library that the test program itself does not need.
    static constexpr wchar_t SpareLibrary[] = L"lz32.dll";

    const TemporaryFolder m_folder;
};

} // namespace

TEST_F(SystemLibraryTest, ALibraryThatTheSearchFindsFirstIsNotTheSystems)
{
    ASSERT_EQ(::GetModuleHandleW(SpareLibrary), nullptr);
    {
        const UniqueModule trap(::LoadLibraryW(SpareLibrary));
        ASSERT_TRUE(std::filesystem::equivalent(PathOf(trap.get()), m_folder.File(SpareLibrary)));
    }
    const UniqueModule library(LoadSystemLibrary(SpareLibrary));
    ASSERT_TRUE(library);
    EXPECT_TRUE(std::filesystem::equivalent(PathOf(library.get()), SystemFolder() / SpareLibrary));
}

TEST_F(SystemLibraryTest, ALibraryThatTheSystemLacksIsNotLoadedFromAnywhereElse)
{
    std::filesystem::copy_file(m_folder.File(SpareLibrary), m_folder.File(L"kestrixspare.dll"));
    ASSERT_TRUE(UniqueModule(::LoadLibraryW(L"kestrixspare.dll")));
    EXPECT_FALSE(UniqueModule(LoadSystemLibrary(L"kestrixspare.dll")));
    EXPECT_EQ(::GetLastError(), DWORD{ERROR_MOD_NOT_FOUND});
}

// A library that is loaded at its first call is loaded by the linker's helper, which asks this function first.
TEST_F(SystemLibraryTest, SoIsALibraryThatIsLoadedAtItsFirstCall)
{
    ASSERT_NE(__pfnDliNotifyHook2, nullptr);
    DelayLoadInfo info{};
    info.szDll = "lz32.dll";
    EXPECT_EQ(__pfnDliNotifyHook2(dliStartProcessing, &info), nullptr);
    const UniqueModule library(reinterpret_cast<HMODULE>(__pfnDliNotifyHook2(dliNotePreLoadLibrary, &info)));
    ASSERT_TRUE(library);
    EXPECT_TRUE(std::filesystem::equivalent(PathOf(library.get()), SystemFolder() / SpareLibrary));
}

TEST_F(SystemLibraryTest, ANameThatIsTooLongIsRefused)
{
    EXPECT_EQ(LoadSystemLibrary(std::wstring(MAX_PATH, L'x').c_str()), nullptr);
    EXPECT_EQ(::GetLastError(), DWORD{ERROR_FILENAME_EXCED_RANGE});
}
