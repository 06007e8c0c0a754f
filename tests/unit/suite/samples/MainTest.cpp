#include "suite/database/EventDatabase.h"
#include "tests/unit/suite/samples/SampleFiles.h"

#include <process.h>

namespace Samples
{

namespace
{

// Starts the program, and returns its exit status or, when it is not waited for, its handle.
intptr_t RunProgram(const std::vector<std::wstring>& arguments, int mode = _P_WAIT)
{
    const std::wstring program = std::filesystem::path(SAMPLE_LOGS_PROGRAM).make_preferred().wstring();
    std::vector<const wchar_t*> command = {program.c_str()};
    for (const std::wstring& argument : arguments)
    {
        command.push_back(argument.c_str());
    }
    command.push_back(nullptr);
    return _wspawnv(mode, program.c_str(), command.data());
}

} // namespace

TEST(MainTest, HelpEndsWithZero)
{
    EXPECT_EQ(RunProgram({L"--help"}), 0);
}

TEST(MainTest, AMonthIsWrittenAndEndsWithZero)
{
    const TemporaryFolder folder;
    EXPECT_EQ(
        RunProgram({L"--folder", folder.Path() / L"Журнал", L"--end", L"20240301", L"--days", L"2", L"--kind", L"PFG"}),
        0);
    EXPECT_NE(ReadUtf16(folder.Path() / L"Журнал" / L"20240301.PFG"), L"");
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / L"Журнал" / L"20240301.VLG"));
}

TEST(MainTest, AFileOfLinesIsWrittenAndEndsWithZero)
{
    const TemporaryFolder folder;
    EXPECT_EQ(RunProgram({L"--lines", L"12", L"--kind", L"VLG", L"--file", folder.Path() / L"a.VLG"}), 0);
    EXPECT_EQ(Lines(ReadUtf16(folder.Path() / L"a.VLG")).size(), 12u);
}

TEST(MainTest, AnUnwritableFileEndsWithOne)
{
    const TemporaryFolder folder;
    EXPECT_EQ(RunProgram({L"--lines", L"1", L"--kind", L"VLG", L"--file", folder.Path() / L"no" / L"a.VLG"}), 1);
}

TEST(MainTest, AnUnknownOptionEndsWithTwo)
{
    EXPECT_EQ(RunProgram({L"--fodler", L"x"}), 2);
    EXPECT_EQ(RunProgram({}), 2);
}

TEST(MainTest, AMonthIsPutIntoADatabaseAndEndsWithZero)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.Path() / L"Журнал.db";
    EXPECT_EQ(RunProgram({L"--database", path, L"--end", L"20240301", L"--days", L"2", L"--kind", L"PFG"}), 0);
    EXPECT_EQ(EventLog::EventDatabase::Open(path).Days(6).front(), 20240301u);
}

TEST(MainTest, ADatabaseThatCannotBeMadeEndsWithOne)
{
    const TemporaryFolder folder;
    EXPECT_EQ(RunProgram({L"--database", folder.File(L"no\\a.db"), L"--days", L"1"}), 1);
}

TEST(MainTest, TwoProcessesFillOneDatabaseAtOnce)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"a.db");
    const std::vector<std::wstring> first = {L"--database", path, L"--kind", L"PFG", L"--seed", L"1"};
    const std::vector<std::wstring> second = {L"--database", path, L"--kind", L"UPG", L"--seed", L"2"};
    const intptr_t processes[] = {RunProgram(first, _P_NOWAIT), RunProgram(second, _P_NOWAIT)};
    for (const intptr_t process : processes)
    {
        ASSERT_NE(process, -1);
        int status = -1;
        ASSERT_EQ(_cwait(&status, process, 0), process);
        EXPECT_EQ(status, 0);
    }
    const EventLog::EventDatabase database = EventLog::EventDatabase::Open(path);
    EXPECT_GT(database.Days(6).size(), 20u);
    EXPECT_GT(database.Days(11).size(), 20u);
}

} // namespace Samples
