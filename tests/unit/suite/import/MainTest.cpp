// The program as a user starts it: what it prints and what it ends with.

#include "suite/database/EventDatabase.h"
#include "tests/support/StartProcess.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/suite/import/ExpectPart.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace Import
{

namespace
{

struct Outcome
{
    DWORD status;
    std::string printed; // on both streams
};

class ImportProgram : public ::testing::Test
{
protected:
    // arguments: as they stand on the command line.
    Outcome Start(const std::wstring& arguments) const
    {
        const std::wstring program = std::filesystem::path(IMPORT_LOGS_PROGRAM).make_preferred().wstring();
        const std::wstring output = m_folder.File(L"output");
        Outcome run{};
        {
            const Suite::KernelHandle process = StartProcess(L"\"" + program + L"\" " + arguments, output);
            WaitForSingleObject(process.get(), 60'000);
            GetExitCodeProcess(process.get(), &run.status);
        }
        run.printed = ReadBytes(output);
        return run;
    }

    // The program with a database of the test and these further arguments.
    Outcome Import(const std::wstring& arguments) const
    {
        return Start(L"--database \"" + m_database + L"\" " + arguments);
    }

    const TemporaryFolder m_folder;
    const std::wstring m_database = m_folder.File(L"Журнал ü.db");
};

} // namespace

TEST_F(ImportProgram, HelpEndsWithZero)
{
    const Outcome run = Start(L"--help");
    EXPECT_EQ(run.status, 0u);
    ExpectPart(run.printed, "usage: ImportLogs");
}

TEST_F(ImportProgram, FilesThatAreAllTakenEndWithZeroAndTheirNumber)
{
    WriteUtf16(m_folder.File(L"20240301.SKP"), L"1||20240301|120000|0|0\r\n");
    WriteUtf16(m_folder.File(L"20240302.SKP"), L"1||20240302|120000|0|0\r\n1||20240302|130000|0|0\r\n");
    const Outcome run = Import(L"\"" + m_folder.Path().wstring() + L"\"");
    EXPECT_EQ(run.status, 0u);
    EXPECT_EQ(run.printed, "2 of 2 files, 3 records are in the database\r\n");
    EXPECT_EQ(EventLog::EventDatabase::Open(m_database).Days(14), (std::vector<EventLog::Day>{20240302, 20240301}));
}

TEST_F(ImportProgram, AFileThatIsLeftOutEndsWithThreeAndItsReason)
{
    WriteUtf16(m_folder.File(L"20240301.SKP"), L"1||20240301|120000|0|3\r\n");
    WriteUtf16(m_folder.File(L"20240302.SKP"), L"1||20240302|120000|0|0\r\n");
    const Outcome run = Import(L"\"" + m_folder.Path().wstring() + L"\"");
    EXPECT_EQ(run.status, 3u);
    ExpectPart(run.printed, "ImportLogs: ");
    ExpectPart(run.printed, "20240301.SKP is not taken, since line 1 has");
    ExpectPart(run.printed, "1 of 2 files, 1 records are in the database");
}

TEST_F(ImportProgram, ADatabaseThatCannotBeMadeEndsWithOneAndItsRemedy)
{
    WriteUtf16(m_folder.File(L"20240301.SKP"), L"1||20240301|120000|0|0\r\n");
    const Outcome run =
        Start(L"--database \"" + m_folder.File(L"no\\a.db") + L"\" \"" + m_folder.Path().wstring() + L"\"");
    EXPECT_EQ(run.status, 1u);
    ExpectPart(run.printed, "cannot write the database");
    ExpectPart(run.printed, "Check that its folder exists");
}

TEST_F(ImportProgram, AWrongCommandLineEndsWithTwo)
{
    EXPECT_EQ(Start(L"").status, 2u);
    EXPECT_EQ(Start(L"--fodler x").status, 2u);
}

} // namespace Import
