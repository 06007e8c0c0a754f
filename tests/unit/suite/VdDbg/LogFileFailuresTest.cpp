#include "suite/VdDbg/LogFile.h"

#include "tests/support/ImportPatch.h"
#include "tests/support/WriteDouble.h"
#include "tests/unit/suite/VdDbg/TraceLogs.h"

#include <gtest/gtest.h>

using VdDbg::LogFile;

extern "C" decltype(&::FlushFileBuffers) __imp_FlushFileBuffers;
extern "C" decltype(&::GetFileInformationByHandle) __imp_GetFileInformationByHandle;

namespace
{

using Lines = std::vector<std::string>;

class VdDbgLogFileFailures : public ::testing::Test
{
protected:
    const TemporaryFolder m_folder;
    const VdDbg::LogName m_name = NameIn(m_folder.Path());
};

BOOL WINAPI RefuseFlush(HANDLE)
{
    SetLastError(ERROR_WRITE_FAULT);
    return FALSE;
}

BOOL WINAPI TellNothing(HANDLE, LPBY_HANDLE_FILE_INFORMATION)
{
    return FALSE;
}

} // namespace

TEST_F(VdDbgLogFileFailures, AFullDiskIsAnErrorAndTheNextLineIsTriedAgain)
{
    LogFile file(m_name, false);
    EXPECT_EQ(file.Append(Noon(), "one\r\n"), 0U);
    {
        const FullDisk full;
        EXPECT_EQ(file.Append(Noon(), "two\r\n"), static_cast<DWORD>(ERROR_DISK_FULL));
    }
    EXPECT_EQ(file.Append(Noon(), "three\r\n"), 0U);
    EXPECT_EQ(LinesOf(m_name.Current()), (Lines{"one", "three"}));
}

TEST_F(VdDbgLogFileFailures, ALineThatWentInByHalfIsTakenBack)
{
    LogFile file(m_name, false);
    EXPECT_EQ(file.Append(Noon(), "one\r\n"), 0U);
    {
        const HalfWrites half;
        EXPECT_EQ(file.Append(Noon(), "a second line\r\n"), static_cast<DWORD>(ERROR_DISK_FULL));
    }
    EXPECT_EQ(file.Append(Noon(), "three\r\n"), 0U);
    EXPECT_EQ(LinesOf(m_name.Current()), (Lines{"one", "three"}));
}

TEST_F(VdDbgLogFileFailures, AFlushThatFailsIsAnError)
{
    LogFile file(m_name, true);
    const ImportPatch<decltype(&::FlushFileBuffers)> fail(__imp_FlushFileBuffers, &RefuseFlush);
    EXPECT_EQ(file.Append(Noon(), "one\r\n"), static_cast<DWORD>(ERROR_WRITE_FAULT));
}

TEST_F(VdDbgLogFileFailures, AFolderThatCannotBeMadeIsAnErrorUntilItCanBeMade)
{
    WriteBytes(m_folder.File(L"in the way"), "");
    const VdDbg::LogName name = NameIn(m_folder.File(L"in the way"));
    LogFile file(name, false);
    EXPECT_NE(file.Open(), 0U);
    EXPECT_NE(file.Append(Noon(), "one\r\n"), 0U);
    std::filesystem::remove(m_folder.File(L"in the way"));
    EXPECT_EQ(file.Append(Noon(), "two\r\n"), 0U);
    EXPECT_EQ(LinesOf(name.Current()), Lines{"two"});
}

TEST_F(VdDbgLogFileFailures, ANameThatIsAFolderIsAnError)
{
    std::filesystem::create_directory(m_name.Current());
    LogFile file(m_name, false);
    EXPECT_NE(file.Open(), 0U);
    EXPECT_NE(file.Append(Noon(), "one\r\n"), 0U);
}

TEST_F(VdDbgLogFileFailures, AFileThatSomebodyHasForHimselfIsAnErrorUntilHeLetsGo)
{
    Suite::KernelHandle owner = Suite::OwnFile(
        CreateFileW(m_name.Current().c_str(), GENERIC_READ, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(owner);
    LogFile file(m_name, false);
    EXPECT_EQ(file.Append(Noon(), "one\r\n"), static_cast<DWORD>(ERROR_SHARING_VIOLATION));
    owner.reset();
    EXPECT_EQ(file.Append(Noon(), "two\r\n"), 0U);
    EXPECT_EQ(LinesOf(m_name.Current()), Lines{"two"});
}

TEST_F(VdDbgLogFileFailures, WhatIsNoTimeIsRefused)
{
    LogFile file(m_name, false);
    EXPECT_EQ(file.Append(SYSTEMTIME{}, "one\r\n"), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    EXPECT_FALSE(std::filesystem::exists(m_name.Current()));
}

TEST_F(VdDbgLogFileFailures, WhileAReaderHoldsAFullFileLinesGoOnIntoIt)
{
    LogFile file(m_name, false, 1);
    EXPECT_EQ(file.Append(Noon(), "one\r\n"), 0U);
    Suite::KernelHandle reader =
        Suite::OwnFile(CreateFileW(m_name.Current().c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                   OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(reader);
    EXPECT_EQ(file.Append(Noon(), "two\r\n"), 0U);
    EXPECT_EQ(file.Append(Noon(), "three\r\n"), 0U);
    reader.reset();
    EXPECT_EQ(file.Append(Noon(), "four\r\n"), 0U);
    EXPECT_EQ(LinesOf(m_name.Old(1)), (Lines{"one", "two", "three"}));
    EXPECT_EQ(LinesOf(m_name.Current()), Lines{"four"});
}

TEST_F(VdDbgLogFileFailures, ASystemThatDoesNotTellFilesApartIsAnErrorAndNoEndlessSearch)
{
    LogFile file(m_name, false, 1);
    EXPECT_EQ(file.Append(Noon(), "one\r\n"), 0U);
    const ImportPatch<decltype(&::GetFileInformationByHandle)> silent(__imp_GetFileInformationByHandle, &TellNothing);
    EXPECT_EQ(file.Append(Noon(), "two\r\n"), static_cast<DWORD>(ERROR_RETRY));
    EXPECT_EQ(LinesOf(m_name.Current()), Lines{"one"});
    EXPECT_FALSE(std::filesystem::exists(m_name.Old(1)));
}
