#include "suite/VdDbg/Folder.h"

#include "tests/support/TemporaryFolder.h"

#include <windows.h>

#include <gtest/gtest.h>

using VdDbg::MakeFolder;

TEST(VdDbgFolder, AllLevelsAreMade)
{
    const TemporaryFolder folder;
    EXPECT_TRUE(MakeFolder(folder.File(L"a\\b\\c")));
    EXPECT_TRUE(std::filesystem::is_directory(folder.File(L"a\\b\\c")));
}

TEST(VdDbgFolder, OneThatIsThereIsFine)
{
    const TemporaryFolder folder;
    EXPECT_TRUE(MakeFolder(folder.Path().wstring()));
}

TEST(VdDbgFolder, OneBelowAFileCannotBeMade)
{
    const TemporaryFolder folder;
    WriteBytes(folder.File(L"file"), "");
    EXPECT_FALSE(MakeFolder(folder.File(L"file\\a\\b")));
}

TEST(VdDbgFolder, OneOnADriveThatIsMissingCannotBeMade)
{
    EXPECT_FALSE(MakeFolder(L"Q:\\a\\b"));
    EXPECT_NE(GetLastError(), static_cast<DWORD>(ERROR_SUCCESS));
}
